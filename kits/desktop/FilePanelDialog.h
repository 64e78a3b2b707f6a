#pragma once

#include <QAbstractItemModel>
#include <QFileDialog>
#include <functional>
#include <string>
#include <vector>

#include "kits/interface/Display.h"

class QLineEdit;
class QListView;

namespace BPrivate {

/// Qt's own browser of folders, made into a part of a window, in which folders can be chosen as
/// files can. It reports what the user does and never hides by itself.
///
/// It changes no files, and starts no event loop of its own: a window may be taken away at any
/// moment, and what is running in the loop would go with it.
///
/// Names that are not valid UTF-8 are not listed: Qt leaves them out.
///
/// Main thread only.
class FilePanelDialog : public QFileDialog {
public:
    struct Listener {
        /// Paths as the file system has them, at least one.
        std::function<void(const std::vector<std::string>& paths)> chosen;
        std::function<void()> cancelled;
        /// The user went to another folder.
        std::function<void(const std::string& path)> entered;
    };

    FilePanelDialog(QWidget* parent, Listener listener);

    void SetKinds(uint32 flavors, bool multiple);
    /// Where the folder is gone, the nearest one above it that is there.
    void SetFolder(const std::string& path);
    /// Empty labels are the desktop's own.
    void SetLabels(const QString& open, const QString& cancel);
    /// Nothing is selected any more.
    void Clear();
    QLineEdit& NameField() const { return *fName; }

    void accept() override;
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void SimplifyControls();
    void ShowMenu(QPoint where);
    void SelectionChanged();
    QModelIndexList SelectedRows() const;
    QStringList Choice() const;
    QStringList TypedPaths() const;
    bool CanBeChosen(const QString& path) const;
    void Complain(const QString& path);
    void ApplyLabels();

    const Listener fListener;
    QLineEdit* const fName;
    QListView* const fList;
    uint32 fFlavors = 0;
    QString fSelected;  // the names of the selected entries, as the name field got them
    QString fFolder;    // as told to or by the kits
    QString fOpenLabel;
    QString fCancelLabel;
};

}  // namespace BPrivate
