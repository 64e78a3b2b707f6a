#include "kits/desktop/FilePanelDialog.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <storage/FilePanel.h>
#include <sys/stat.h>
#include <utility>

namespace BPrivate {

namespace {

constexpr int kSizeColumn = 1;

/// The dialog's parts bear the same names since Qt 4.
template <typename Kind>
Kind* Part(const QWidget& dialog, const char* name) {
    return dialog.findChild<Kind*>(QString::fromLatin1(name));
}

/// For the column of the sizes: what leads nowhere has none.
class SizeDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* model = qobject_cast<const QFileSystemModel*>(index.model());
        if (model != nullptr && model->size(index) < 0)
            option->text.clear();
    }
};

/// As the name field takes them.
QString Joined(const QStringList& names) {
    return names.size() == 1 ? names.front() : u'"' + names.join(QStringLiteral("\" \"")) + u'"';
}

}  // namespace

FilePanelDialog::FilePanelDialog(QWidget* parent, Listener listener)
    : QFileDialog(parent, Qt::Widget), fListener(std::move(listener)),
      // The desktop's own dialogs choose files or folders, and stand in windows of their own.
      fName((setOptions(DontUseNativeDialog | ReadOnly), Part<QLineEdit>(*this, "fileNameEdit"))),
      fList(Part<QListView>(*this, "listView")) {
    setWindowFlags(Qt::Widget);
    setSizeGripEnabled(false);
    SimplifyControls();
    connect(fList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this] { SelectionChanged(); });
    connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
        [this](const QString& path) {
            if (path.isEmpty() || std::exchange(fFolder, path) == path)
                return;
            fListener.entered(QFile::encodeName(path).toStdString());
        });
}

// What only a dialog needs that saves, or that waits in a loop of its own.
void FilePanelDialog::SimplifyControls() {
    for (const char* name : {"fileTypeCombo", "fileTypeLabel", "newFolderButton"}) {
        if (auto* part = Part<QWidget>(*this, name))
            part->hide();
    }
    for (auto* view : findChildren<QAbstractItemView*>()) {
        view->setDragEnabled(false);
        if (view->contextMenuPolicy() != Qt::CustomContextMenu)
            continue;
        disconnect(view, &QWidget::customContextMenuRequested, this, nullptr);
        connect(view, &QWidget::customContextMenuRequested, this,
            [this, view](QPoint where) { ShowMenu(view->viewport()->mapToGlobal(where)); });
    }
    if (auto* sidebar = Part<QAbstractItemView>(*this, "sidebar")) {
        disconnect(sidebar, &QWidget::customContextMenuRequested, nullptr, nullptr);
        sidebar->setContextMenuPolicy(Qt::NoContextMenu);
    }
    if (auto* details = Part<QTreeView>(*this, "treeView"); details != nullptr) {
        details->setItemDelegateForColumn(kSizeColumn, new SizeDelegate(details));
        QHeaderView& header = *details->header();
        header.setContextMenuPolicy(Qt::NoContextMenu);
        // The name has what the others leave. Only rows that are seen are measured.
        header.setStretchLastSection(false);
        header.setResizeContentsPrecision(0);
        for (int column = 0; column < header.count(); column++) {
            header.setSectionResizeMode(
                column, column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
        }
    }
}

void FilePanelDialog::ShowMenu(QPoint where) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* hidden = findChild<QAction*>(QStringLiteral("qt_show_hidden_action")))
        menu->addAction(hidden);
    menu->popup(where);
}

void FilePanelDialog::SetKinds(uint32 flavors, bool multiple) {
    if (flavors == fFlavors)
        return;
    fFlavors = flavors;
    if ((flavors & ~B_DIRECTORY_NODE) == 0)
        setFileMode(Directory);
    else
        setFileMode(multiple ? ExistingFiles : ExistingFile);
    // A link that leads nowhere is there, too.
    setFilter((flavors & B_SYMLINK_NODE) != 0 ? filter() | QDir::System : filter() & ~QDir::System);
    ApplyLabels();  // the mode has another one
}

void FilePanelDialog::SetFolder(const std::string& path) {
    QString folder = QFile::decodeName(path.c_str());
    while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).path())
        folder = QFileInfo(folder).path();
    fFolder = folder;
    setDirectory(folder);
}

void FilePanelDialog::SetLabels(const QString& open, const QString& cancel) {
    if (open == fOpenLabel && cancel == fCancelLabel)
        return;
    fOpenLabel = open;
    fCancelLabel = cancel;
    ApplyLabels();
}

void FilePanelDialog::ApplyLabels() {
    setLabelText(Accept, fOpenLabel);
    auto* buttons = Part<QDialogButtonBox>(*this, "buttonBox");
    if (fCancelLabel.isEmpty()) {
        // The box gives its buttons their texts in the language there is.
        QEvent languageChange(QEvent::LanguageChange);
        QCoreApplication::sendEvent(buttons, &languageChange);
    } else {
        buttons->button(QDialogButtonBox::Cancel)->setText(fCancelLabel);
    }
}

void FilePanelDialog::changeEvent(QEvent* event) {
    QFileDialog::changeEvent(event);
    // The parts hear of it after this, and give the buttons their own texts.
    if (event->type() == QEvent::LanguageChange)
        QMetaObject::invokeMethod(
            this, [this] { ApplyLabels(); }, Qt::QueuedConnection);
}

void FilePanelDialog::Clear() {
    fSelected.clear();
    fList->selectionModel()->clear();
    fName->clear();
}

// Without those that Qt adds: while the name field is empty it selects the folder itself.
QModelIndexList FilePanelDialog::SelectedRows() const {
    QModelIndexList rows = fList->selectionModel()->selectedRows();
    const QModelIndex folder = fList->rootIndex();
    rows.removeIf([&](const QModelIndex& row) { return row.parent() != folder; });
    return rows;
}

// Qt names only the files among what is selected, and leaves the last file's name there when a
// folder is selected after it.
void FilePanelDialog::SelectionChanged() {
    if (fName->hasFocus())
        return;  // the user types, and the selection follows
    QStringList names;
    const QModelIndexList rows = SelectedRows();
    for (const QModelIndex& row : rows) {
        const QFileInfo info(row.data(QFileSystemModel::FilePathRole).toString());
        if ((fFlavors & B_DIRECTORY_NODE) != 0 || !info.isDir())
            names << row.data(QFileSystemModel::FileNameRole).toString();
    }
    if (rows.isEmpty())
        return;
    fSelected = names.isEmpty() ? QString() : Joined(names);
    fName->setText(fSelected);
    Part<QDialogButtonBox>(*this, "buttonBox")->button(QDialogButtonBox::Open)->setEnabled(true);
}

QStringList FilePanelDialog::Choice() const {
    const QModelIndexList rows = SelectedRows();
    QStringList paths;
    if (rows.isEmpty() || fName->text() != fSelected)
        paths = TypedPaths();
    for (const QModelIndex& row : rows) {
        if (fName->text() == fSelected)
            paths << row.data(QFileSystemModel::FilePathRole).toString();
    }
    // Who looks for a folder is in one already.
    if (paths.isEmpty() && fileMode() == Directory)
        paths << directory().absolutePath();
    return paths;
}

// Qt's own reading adds what was selected before.
QStringList FilePanelDialog::TypedPaths() const {
    const auto pathOf = [this](QString name) {
        if (name == QStringLiteral("~") || name.startsWith(QStringLiteral("~/")))
            name.replace(0, 1, QDir::homePath());
        return directory().absoluteFilePath(name);
    };
    const QString text = fName->text();
    if (text.isEmpty())
        return {};
    if (!text.contains(u'"') || QFileInfo::exists(pathOf(text)))
        return {pathOf(text)};
    QStringList paths;
    const QStringList parts = text.split(u'"');
    for (qsizetype i = 1; i < parts.size(); i += 2) {
        if (!parts[i].isEmpty())
            paths << pathOf(parts[i]);
    }
    return paths;
}

bool FilePanelDialog::CanBeChosen(const QString& path) const {
    const QByteArray bytes = QFile::encodeName(path);
    struct stat st = {};
    if (lstat(bytes.constData(), &st) != 0)
        return false;
    if (S_ISLNK(st.st_mode) && (fFlavors & B_SYMLINK_NODE) != 0)
        return true;
    if (stat(bytes.constData(), &st) != 0)
        return false;
    return (fFlavors & (S_ISDIR(st.st_mode) ? B_DIRECTORY_NODE : B_FILE_NODE)) != 0;
}

void FilePanelDialog::accept() {
    const QStringList paths = Choice();
    if (paths.isEmpty())
        return;
    // A folder that cannot be chosen, or that was typed as one, is gone to.
    const QString typed = fName->text();
    const bool isPlace =
        typed != fSelected && (typed.endsWith(u'/') || typed == QStringLiteral(".."));
    if (QFileInfo(paths.front()).isDir() && (isPlace || !CanBeChosen(paths.front()))) {
        Clear();
        setDirectory(QDir(paths.front()).canonicalPath());
        return;
    }
    std::vector<std::string> chosen;
    for (const QString& path : paths) {
        if (!CanBeChosen(path)) {
            Complain(path);
            return;
        }
        chosen.push_back(QFile::encodeName(path).toStdString());
        if (fileMode() == ExistingFile)
            break;
    }
    fListener.chosen(chosen);
}

void FilePanelDialog::reject() {
    fListener.cancelled();
}

// In the dialog's own words, but without waiting for the user in here.
void FilePanelDialog::Complain(const QString& path) {
    const QString text = fileMode() == Directory
        ? tr("%1\nDirectory not found.\nPlease verify the correct directory name was given.")
        : tr("%1\nFile not found.\nPlease verify the correct file name was given.");
    auto* box = new QMessageBox(QMessageBox::Warning, window()->windowTitle(),
        text.arg(QFileInfo(path).fileName()), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

}  // namespace BPrivate
