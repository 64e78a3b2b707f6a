#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QTranslator>
#include <memory>
#include <string>

#include "kits/desktop/SystemLocale.h"
#include "kits/locale/Language.h"

namespace BPrivate {

/// Keeps the language that of the desktop: the user's own locale.conf in the settings folder, or
/// else the system's setting since it changed, or else the environment.
///
/// On the display's thread. Watching begins when the first window is on the screen, so that it
/// costs no start-up time.
class LanguageWatch : public QObject {
public:
    /// The language is that of the session from here on.
    LanguageWatch();
    ~LanguageWatch() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Start();
    void FileMayHaveChanged();
    void WatchFile();
    void ReadFile();
    void Apply();
    void TranslateControls();

    const QString fFolder;  // empty when the user has none
    LanguageChoice fChoice;
    std::string fLanguage;
    std::unique_ptr<QFileSystemWatcher> fFiles;
    QTimer fFileSettled;
    std::unique_ptr<SystemLocale> fSystem;
    QTranslator fControlTexts;
};

}  // namespace BPrivate
