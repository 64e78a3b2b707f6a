#include "kits/desktop/LanguageWatch.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <storage/FindDirectory.h>
#include <storage/Path.h>

#include "kits/locale/Catalogue.h"
#include "kits/locale/LanguageChange.h"

namespace BPrivate {

namespace {

// Whoever writes the file may empty it first.
constexpr int kSettleMilliseconds = 100;

// No locale.conf is longer.
constexpr qint64 kMostBytes = 65536;

QString SettingsFolder() {
    BPath path;
    if (find_directory(B_USER_SETTINGS_DIRECTORY, &path) != B_OK)
        return {};
    return QFile::decodeName(path.Path());
}

QString PathOfFile(const QString& folder) {
    return QDir(folder).filePath(QStringLiteral("locale.conf"));
}

/// The folder itself, or the nearest one above it that is there.
QString NearestFolder(QString folder) {
    while (!QFileInfo(folder).isDir()) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder)
            return {};
        folder = parent;
    }
    return folder;
}

}  // namespace

LanguageWatch::LanguageWatch()
    : fFolder(SettingsFolder()), fChoice(locale_of_environment(), known_languages()) {
    fFileSettled.setSingleShot(true);
    fFileSettled.setInterval(kSettleMilliseconds);
    QObject::connect(&fFileSettled, &QTimer::timeout, this, [this] { FileMayHaveChanged(); });
    ReadFile();
    Apply();
    QCoreApplication::instance()->installEventFilter(this);
}

LanguageWatch::~LanguageWatch() = default;

bool LanguageWatch::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Expose) {
        QCoreApplication::instance()->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] { Start(); });
    }
    return false;
}

void LanguageWatch::Start() {
    if (!fFolder.isEmpty()) {
        fFiles = std::make_unique<QFileSystemWatcher>();
        // A folder that keeps changing must not put the reading off for ever.
        const auto changed = [this] {
            if (!fFileSettled.isActive())
                fFileSettled.start();
        };
        QObject::connect(fFiles.get(), &QFileSystemWatcher::directoryChanged, this, changed);
        QObject::connect(fFiles.get(), &QFileSystemWatcher::fileChanged, this, changed);
        // It may have changed since it was read.
        FileMayHaveChanged();
    }
    fSystem = std::make_unique<SystemLocale>([this](const QStringList& assignments) {
        std::vector<std::string> lines;
        for (const QString& assignment : assignments)
            lines.push_back(assignment.toStdString());
        fChoice.SetSystem(locale_of_assignments(lines));
        Apply();
    });
}

// Watched first, so that no change falls between.
void LanguageWatch::FileMayHaveChanged() {
    WatchFile();
    ReadFile();
    Apply();
}

// A watch is lost with the file or folder it was on, and what was missing may have come.
void LanguageWatch::WatchFile() {
    QString folder;
    do {
        folder = NearestFolder(fFolder);
        const QStringList watched = fFiles->directories();
        if (watched == QStringList(folder))
            break;
        if (!watched.isEmpty())
            (void)fFiles->removePaths(watched);
        if (!folder.isEmpty())
            (void)fFiles->addPath(folder);
    } while (NearestFolder(fFolder) != folder);

    // A path that stays watched may by now be another file.
    const QString file = PathOfFile(fFolder);
    (void)fFiles->removePath(file);
    if (QFileInfo::exists(file))
        (void)fFiles->addPath(file);
}

void LanguageWatch::ReadFile() {
    QFile file(PathOfFile(fFolder));
    QByteArray content;
    // Anything but a file would be waited for.
    if (!fFolder.isEmpty() && QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly))
        content = file.read(kMostBytes);
    fChoice.SetUserFile(
        locale_of_file({content.constData(), static_cast<std::size_t>(content.size())}));
}

void LanguageWatch::Apply() {
    const std::string language = fChoice.Language();
    if (language == fLanguage)
        return;
    fLanguage = language;
    TranslateControls();
    change_language(language);
}

// What Qt's own controls say, such as the menu of a text field. Its translations may not be
// installed.
void LanguageWatch::TranslateControls() {
    QCoreApplication::removeTranslator(&fControlTexts);
    if (fLanguage != "en" &&
        fControlTexts.load(QStringLiteral("qtbase_") + QString::fromStdString(fLanguage),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&fControlTexts);
}

}  // namespace BPrivate
