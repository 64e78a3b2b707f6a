#include "app/LorivaneApp.h"
#include "app/StartCheck.h"
#include "app/Usage.h"
#include "framework/AppPrivacy.h"
#include "framework/Thread.h"
#include "framework/Version.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/InterAppPrefs.h"
#include "settings/Additions.h"
#include "settings/ExitStates.h"
#include "settings/Prefs.h"

#include <app/LaunchFiles.h>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv, argv + argc);
    const std::string text = text_asked_for(words);
    if (!text.empty())
        return std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
    const StartCheck check = check_start(find_launch_files(words));
    for (const std::string& line : check.lines)
        std::fprintf(stderr, "%s\n", line.c_str());
    if (check.status != 0)
        return check.status;

    gAppPrivacy.AnalyzeExePath(argv[0]);

    // What is missing or damaged keeps its defaults.
    (void)gExitStates.LoadFromFile();
    (void)gPrefs.LoadFromFile();
    (void)gAdditions.LoadFromFile();

    (void)gIAPs.SetAppSignatureRef(kAppSignature);
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    (void)gIAPs.AddItem(new TIAPItemFlatToolBar);

    auto app = std::make_unique<TLorivaneApp>();
    app->Run();
    app.reset();

    (void)gExitStates.SaveToFile();
    // A decoder that nobody waits for must not see what it works with be destroyed under it.
    if (TThread::CountAbandoned() > 0)
        std::quick_exit(0);
    return 0;
}
