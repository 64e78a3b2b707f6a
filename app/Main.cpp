#include "app/LorivaneApp.h"
#include "framework/AppPrivacy.h"
#include "settings/ExitStates.h"
#include "settings/Prefs.h"

#include <memory>

int main(int /*argc*/, char** argv) {
    gAppPrivacy.AnalyzeExePath(argv[0]);

    // What is missing or damaged keeps its defaults.
    (void)gExitStates.LoadFromFile();
    (void)gPrefs.LoadFromFile();

    auto app = std::make_unique<TLorivaneApp>();
    app->Run();
    app.reset();

    (void)gExitStates.SaveToFile();
    return 0;
}
