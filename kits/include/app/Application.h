#pragma once

#include <app/Looper.h>
#include <string>

class BApplication;
class BMessageRunner;
class BResources;
class BWindow;
struct app_info;

/// The application object, null while there is none, and its address.
extern BApplication* be_app;
extern BMessenger be_app_messenger;

/// The application's looper, and the process's connection to the screen.
///
/// It is made on the main thread, at most one at a time, and deleted by who made it after Run()
/// has returned. Its own messages are dispatched in a thread of its own while the main thread,
/// inside Run(), serves the screen.
class BApplication : public BLooper {
public:
    /// The signature is a MIME type, "application/x-vnd.Maker-Name".
    explicit BApplication(const char* signature);
    /// `error` is set to B_BAD_VALUE for a bad signature, B_ALREADY_RUNNING for a second object.
    BApplication(const char* signature, status_t* error);
    ~BApplication() override;

    status_t InitCheck() const { return fInitStatus; }
    const char* Signature() const { return fSignature.c_str(); }
    /// What the roster knows of this application; see app/Roster.h.
    status_t GetAppInfo(app_info* info) const;
    /// The resources built into the program. They belong to the kits; never null.
    static BResources* AppResources();

    /// Dispatches B_ARGV_RECEIVED, B_REFS_RECEIVED with the files of the command line, and
    /// B_READY_TO_RUN; then serves messages and the screen until Quit(). Main thread only.
    ///
    /// A process that is told to end (SIGTERM, SIGINT, SIGHUP) asks the application to quit.
    ///
    /// A file that is not there, or an option, is reported on standard error and left out.
    /// Returns the thread the application ran in.
    thread_id Run() override;
    /// Ends Run(); the caller holds the lock, and outside of the application's thread gives it up
    /// by this. All windows are closed without being asked. Returns at once.
    void Quit() override;
    /// Asks every window, and closes those that agree; true when all did.
    bool QuitRequested() override;

    virtual void ReadyToRun();
    /// "refs" of the message are the entries, in order.
    virtual void RefsReceived(BMessage* message);
    virtual void ArgvReceived(int32 argc, char** argv);
    virtual void AboutRequested();
    /// Called every pulse, when a rate was set.
    virtual void Pulse();
    /// In microseconds; 0 ends the pulse.
    void SetPulseRate(bigtime_t rate);

    void DispatchMessage(BMessage* message, BHandler* handler) override;

    /// In the order they were made. A window pointer is only safe while the window cannot quit.
    int32 CountWindows() const;
    BWindow* WindowAt(int32 index) const;
    int32 CountLoopers() const;
    BLooper* LooperAt(int32 index) const;

protected:
    void LoopEnded() override;

private:
    void Init(const char* signature);
    void PostCommandLine();
    void CloseWindows();

    status_t fInitStatus = B_NO_INIT;
    std::string fSignature;
    std::unique_ptr<BMessageRunner> fPulse;
};
