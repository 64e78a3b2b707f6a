// An application that says what happens to it. With PEER_SINGLE in its environment it runs once;
// with PEER_ANSWER_LIMIT it waits so many milliseconds for one that runs already; with PEER_SLOW it
// goes on to its Run() when it has heard a line.

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <app/Roster.h>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <sstream>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <thread>

#include "kits/app/SingleLaunch.h"
#include "tests/kits/bus/peer/Peer.h"

namespace {

void Say(const std::string& line) {
    static std::mutex lock;
    const std::lock_guard guard(lock);
    std::cout << line << std::endl;
}

std::string CodeText(uint32 code) {
    return {char(code >> 24), char(code >> 16), char(code >> 8), char(code)};
}

uint32 CodeOf(const std::string& text) {
    uint32 code = 0;
    for (const char c : text)
        code = code << 8 | uint8(c);
    return code;
}

class Application : public BApplication {
public:
    using BApplication::BApplication;

    void ReadyToRun() override { Say("ready"); }

    void ArgvReceived(int32 count, char**) override { Say("argv " + std::to_string(count)); }

    void RefsReceived(BMessage* message) override {
        entry_ref ref;
        for (int32 i = 0; message->FindRef("refs", i, &ref) == B_OK; ++i)
            Say(std::string("ref ") + BPath(&ref).Path());
    }

    // "got CODE TEXT SIZE": the text field, the size of the data field; then what is special.
    void MessageReceived(BMessage* message) override {
        if (message->what == 'hang')
            Hang();
        const char* text = "-";
        const void* data = nullptr;
        ssize_t size = 0;
        void* pointer = nullptr;
        (void)message->FindString("text", &text);
        const bool hasData = message->FindData("data", B_RAW_TYPE, &data, &size) == B_OK;
        std::ostringstream line;
        line << "got " << CodeText(message->what) << ' ' << text << ' ' << size;
        if (hasData &&
            std::string(static_cast<const char*>(data), size_t(size)) !=
                Pattern(int32(message->what), size_t(size)))
            line << " damaged";
        if (message->IsSourceRemote())
            line << " remote";
        if (message->FindPointer("pointer", &pointer) == B_OK)
            line << " pointer";
        Say(line.str());
    }

private:
    [[noreturn]] void Hang() {
        Say("hangs");
        while (MessageQueue()->FindMessage(BPrivate::kLaunchMarker, 0) == nullptr)
            snooze(1000);
        Say("asked");
        for (;;)
            snooze(1000000);
    }
};

// | command | what it does |
// |---|---|
// | broadcast CODE TEXT SIZE | to all, with a pointer; says "refused STATUS" when it fails |
// | running SIGNATURE | says "yes" or "no" |
// | hang | lets the application's thread do nothing any more; says "asked" when a later start has
//   handed its command line over all the same |
// | quit | ends it |
void Obey(const std::string& line) {
    std::istringstream words(line);
    std::string command, argument, text;
    words >> command >> argument;
    if (command == "broadcast") {
        size_t size = 0;
        words >> text >> size;
        BMessage message(CodeOf(argument));
        message.AddString("text", text.c_str());
        message.AddPointer("pointer", &message);
        const std::string data = Pattern(int32(message.what), size);
        if (size > 0)
            message.AddData("data", B_RAW_TYPE, data.data(), ssize_t(size));
        if (const status_t status = be_roster->Broadcast(&message); status != B_OK)
            Say("refused " + std::to_string(status));
    } else if (command == "running") {
        Say(be_roster->IsRunning(argument.c_str()) ? "yes" : "no");
    } else if (command == "hang") {
        (void)be_app_messenger.SendMessage('hang');
    } else if (command == "quit") {
        (void)be_app_messenger.SendMessage(B_QUIT_REQUESTED);
    }
}

}  // namespace

int RunApplication(const char* signature) {
    if (std::getenv("PEER_SINGLE") != nullptr)
        BPrivate::set_launch_flags(B_SINGLE_LAUNCH);
    if (const char* const limit = std::getenv("PEER_ANSWER_LIMIT"))
        BPrivate::set_launch_limits({.answer = std::atoll(limit) * 1000});
    Application application(signature);
    if (std::getenv("PEER_SLOW") != nullptr) {
        Say("starts");
        std::string line;
        std::getline(std::cin, line);
    }
    std::thread([] {
        for (std::string line; std::getline(std::cin, line);)
            Obey(line);
    }).detach();
    application.Run();
    Say("ended");
    return 0;
}
