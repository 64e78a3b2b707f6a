#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

// Of the text, in the widths of an ordinary character: what an eye follows.
constexpr int kWidest = 64;

/// The text, broken anywhere where a word is too long, and scrolled where there is too much.
class AlertTextEdit : public QTextEdit {
public:
    explicit AlertTextEdit(QWidget* parent) : QTextEdit(parent) {
        setReadOnly(true);
        setFrameStyle(QFrame::NoFrame);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        document()->setDocumentMargin(0);
        setViewportMargins(0, 0, 0, 0);
        // It lies on the panel, and is no field to be filled in.
        setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
        setFocusPolicy(Qt::ClickFocus);
    }

    QSize sizeHint() const override {
        const int widest = fontMetrics().averageCharWidth() * kWidest;
        const QSizeF atMost = SizeAt(widest);
        const int width = std::min(widest, static_cast<int>(std::ceil(atMost.width())));
        // At its own width it breaks no earlier.
        return {width + 1, static_cast<int>(std::ceil(atMost.height()))};
    }
    QSize minimumSizeHint() const override { return {1, 1}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QTextEdit::resizeEvent(event);
        // Left to itself it keeps a bar that only the bar's own width makes necessary.
        const bool isCut = SizeAt(width()).height() > height();
        setVerticalScrollBarPolicy(isCut ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    }

private:
    /// The widest line and the height of the text when no line may be wider.
    QSizeF SizeAt(int width) const {
        QTextDocument text;
        text.setDefaultFont(font());
        text.setDocumentMargin(0);
        QTextOption option = text.defaultTextOption();
        option.setWrapMode(wordWrapMode());
        text.setDefaultTextOption(option);
        text.setPlainText(toPlainText());
        text.setTextWidth(width);
        return {text.idealWidth(), text.size().height()};
    }
};

class AlertPane : public QWidget {
public:
    explicit AlertPane(QWidget* parent)
        : QWidget(parent), fPicture(new QLabel(this)), fText(new AlertTextEdit(this)) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(2 * style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
        row->addWidget(fPicture, 0, Qt::AlignTop);
        row->addWidget(fText, 1, Qt::AlignVCenter);
    }

    void Show(const AlertTextState& state) {
        fType = state.type;
        const QString text = QString::fromStdString(state.text);
        if (text != fText->toPlainText()) {
            fText->setPlainText(text);
            fText->updateGeometry();
        }
        fText->setAccessibleName(text);
        ShowPicture();
    }

protected:
    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange)
            ShowPicture();
    }

    // A proxy would be given this one's focus policy, and could not be selected with the mouse.
    void focusInEvent(QFocusEvent*) override { fText->setFocus(); }

    void showEvent(QShowEvent* event) override {
        QWidget::showEvent(event);
        if (fType == B_WARNING_ALERT || fType == B_STOP_ALERT)
            QApplication::beep();
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }

private:
    void ShowPicture() {
        const QIcon icon = Picture();
        fPicture->setVisible(!icon.isNull());
        if (icon.isNull())
            return;
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        fPicture->setPixmap(icon.pixmap(QSize(size, size), devicePixelRatioF()));
    }

    QIcon Picture() const {
        const auto standard = [this](QStyle::StandardPixmap which) {
            return style()->standardIcon(which, nullptr, this);
        };
        switch (fType) {
        case B_INFO_ALERT: return standard(QStyle::SP_MessageBoxInformation);
        case B_IDEA_ALERT: return standard(QStyle::SP_MessageBoxQuestion);
        case B_WARNING_ALERT: return standard(QStyle::SP_MessageBoxWarning);
        case B_STOP_ALERT: return standard(QStyle::SP_MessageBoxCritical);
        case B_EMPTY_ALERT: break;
        }
        return {};
    }

    QLabel* const fPicture;
    AlertTextEdit* const fText;
    alert_type fType = B_EMPTY_ALERT;
};

/// Assistive programs read out what has this role.
QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* pane = dynamic_cast<AlertPane*>(object);
    return pane != nullptr ? new QAccessibleWidget(pane, QAccessible::AlertMessage) : nullptr;
}

class AlertTextWidget : public ControlWidget {
public:
    explicit AlertTextWidget(AlertPane* pane) : ControlWidget(pane), fPane(*pane) {}

    void SetState(const ControlState& state) override {
        fPane.Show(std::get<AlertTextState>(state));
    }

private:
    AlertPane& fPane;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeAlertText(QWidget* parent) {
    // Asked for every object; a second time it would only be asked twice.
    [[maybe_unused]] static const bool isKnown = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
    return std::make_unique<AlertTextWidget>(new AlertPane(parent));
}

}  // namespace BPrivate
