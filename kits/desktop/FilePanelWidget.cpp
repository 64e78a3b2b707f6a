#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>
#include <storage/Entry.h>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/FilePanelDialog.h"

namespace BPrivate {

namespace {

/// Around the dialog, which is to have the keys that other controls leave to the kits. Tab goes
/// from one of its parts to the next, as in a window.
class FilePanelPane : public QWidget {
public:
    FilePanelPane(QWidget* parent, FilePanelDialog::Listener listener)
        : QWidget(parent), fDialog(new FilePanelDialog(this, std::move(listener))) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(fDialog);
        setAutoFillBackground(true);
        setFocusProxy(&fDialog->NameField());
        fDialog->NameField().installEventFilter(this);
        Suggestions().installEventFilter(this);
        fDialog->show();
    }

    void Show(const FilePanelState& state) {
        fDialog->SetKinds(state.flavors, state.multiple);
        fDialog->SetLabels(LabelText(state.openLabel), LabelText(state.cancelLabel));
        if (state.folderSerial == fFolderSerial)
            return;
        fFolderSerial = state.folderSerial;
        fFolder = state.folder;
        if (isVisible())
            GoToFolder();
    }

    bool eventFilter(QObject* part, QEvent* event) override {
        // They may come once a folder is read, when the panel is gone.
        if (part == &Suggestions() && event->type() == QEvent::Show && !isVisible())
            QMetaObject::invokeMethod(&Suggestions(), &QWidget::hide, Qt::QueuedConnection);
        if (part != &fDialog->NameField() || event->type() != QEvent::KeyPress)
            return false;
        return LeaveToWindow(*static_cast<QKeyEvent*>(event));
    }

protected:
    void hideEvent(QHideEvent* event) override {
        QWidget::hideEvent(event);
        Suggestions().hide();
    }

    void showEvent(QShowEvent* event) override {
        QWidget::showEvent(event);
        // Reading a folder may take its time, and is not worth it before it is seen.
        GoToFolder();
        fDialog->Clear();
        fDialog->NameField().setFocus();
    }

    // Asked by all parts; the content around it knows nothing of them.
    bool focusNextPrevChild(bool next) override {
        QWidget* const from = QApplication::focusWidget();
        if (from == nullptr || !fDialog->isAncestorOf(from))
            return false;
        const auto step = [next](const QWidget* widget) {
            return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
        };
        for (QWidget* to = step(from); to != from; to = step(to)) {
            if (!fDialog->isAncestorOf(to) || !to->isVisible() || !to->isEnabled() ||
                (to->focusPolicy() & Qt::TabFocus) == 0 || to->focusProxy() != nullptr)
                continue;
            to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
        return false;
    }

private:
    QWidget& Suggestions() const { return *fDialog->NameField().completer()->popup(); }

    // The name field keeps all keys, also those it has no use for, such as the window's shortcuts.
    bool LeaveToWindow(QKeyEvent& key) {
        if ((key.modifiers() & Qt::ControlModifier) == 0)
            return false;
        QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text());
        question.ignore();
        QCoreApplication::sendEvent(&fDialog->NameField(), &question);
        if (question.isAccepted())
            return false;
        key.ignore();
        return true;
    }

    void GoToFolder() {
        if (!fFolder.empty())
            fDialog->SetFolder(std::exchange(fFolder, {}));
    }

    FilePanelDialog* const fDialog;
    int32 fFolderSerial = -1;
    std::string fFolder;  // to be gone to; empty for none
};

FilePanelDialog::Listener ListenerOf(const ControlReport& report) {
    return {
        [report](const std::vector<std::string>& paths) {
            BMessage change;
            for (const std::string& path : paths) {
                entry_ref ref;
                if (get_ref_for_path(path.c_str(), &ref) == B_OK)
                    change.AddRef("refs", &ref);
            }
            if (change.HasRef("refs"))
                report(change);
        },
        [report] {
            BMessage change;
            change.AddBool("cancel", true);
            report(change);
        },
        [report](const std::string& path) {
            BMessage change;
            change.AddString("folder", path.c_str());
            report(change);
        },
    };
}

class FilePanelWidget : public ControlWidget {
public:
    explicit FilePanelWidget(FilePanelPane* pane) : ControlWidget(pane), fPane(*pane) {}

    void SetState(const ControlState& state) override {
        fPane.Show(std::get<FilePanelState>(state));
    }

private:
    FilePanelPane& fPane;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeFilePanel(QWidget* parent, ControlReport report) {
    return std::make_unique<FilePanelWidget>(new FilePanelPane(parent, ListenerOf(report)));
}

}  // namespace BPrivate
