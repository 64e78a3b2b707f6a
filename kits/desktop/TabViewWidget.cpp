#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>
#include <algorithm>
#include <cmath>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

/// The strip, and the theme's frame of the pane below it. What is in the pane are widgets that lie
/// above this one and what the kits have drawn below it, so only the frame itself is painted.
class TabPane : public QWidget {
public:
    explicit TabPane(QWidget* parent) : QWidget(parent), fStrip(this) {
        fStrip.setDrawBase(false);
        fStrip.setExpanding(false);
        fStrip.setUsesScrollButtons(true);
        setFocusProxy(&fStrip);
        // Moves over the pane are for the views in it, to which Qt passes what is ignored here.
        setMouseTracking(true);
        QObject::connect(&fStrip, &QTabBar::currentChanged, this, qOverload<>(&QWidget::update));
    }

    QTabBar& Strip() { return fStrip; }

    void Arrange() {
        const QSize hint = fStrip.sizeHint();
        fStrip.setGeometry(
            0, 0, std::min(width(), hint.width()), std::min(height(), StripHeight()));
        update();
    }

    QSize sizeHint() const override { return {fStrip.sizeHint().width(), StripHeight()}; }

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
            Arrange();
    }

    void paintEvent(QPaintEvent*) override {
        const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
        QStyleOptionTabWidgetFrame frame;
        frame.initFrom(this);
        frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        frame.shape = fStrip.shape();
        frame.tabBarSize = fStrip.size();
        frame.tabBarRect = fStrip.geometry();
        frame.selectedTabRect = fStrip.tabRect(fStrip.currentIndex());
        frame.rect.setTop(StripHeight() - overlap);

        constexpr int kFrame = static_cast<int>(kTabPaneFrame);
        const QRect page = rect().adjusted(kFrame, StripHeight() + kFrame, -kFrame, -kFrame);
        QPainter painter(this);
        painter.setClipRegion(QRegion(frame.rect) - page);
        style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
    }

private:
    int StripHeight() const {
        if (fStrip.count() > 0)
            return fStrip.sizeHint().height();
        QTabBar sample;
        sample.addTab(QStringLiteral("X"));
        return sample.sizeHint().height();
    }

    QTabBar fStrip;
};

class TabViewWidget : public ControlWidget {
public:
    TabViewWidget(TabPane* pane, ControlReport report)
        : ControlWidget(pane), fPane(*pane), fStrip(pane->Strip()), fReport(std::move(report)) {
        QObject::connect(&fStrip, &QTabBar::currentChanged, &fStrip, [this](int index) {
            BMessage change;
            change.AddInt32("value", index);
            fReport(change);
        });
    }

    QWidget& FocusWidget() override { return fStrip; }

    void SetState(const ControlState& state) override {
        const auto& view = std::get<TabViewState>(state);
        const QSignalBlocker blocker(fStrip);
        const int count = static_cast<int>(view.tabs.size());
        while (fStrip.count() > count)
            fStrip.removeTab(fStrip.count() - 1);
        for (int i = 0; i < count; i++) {
            const QString label = LabelText(view.tabs[static_cast<size_t>(i)]);
            if (i == fStrip.count())
                fStrip.addTab(label);
            else if (fStrip.tabText(i) != label)
                fStrip.setTabText(i, label);
            fStrip.setTabEnabled(i, !std::ranges::binary_search(view.disabled, i));
        }
        fStrip.setCurrentIndex(view.selected);
        fPane.Arrange();
    }

    bool TakeWindowKey(const QKeyEvent& event) override {
        if (!fStrip.isVisible() || !fStrip.isEnabled())
            return false;
        const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
        const bool shifted = held == (Qt::ControlModifier | Qt::ShiftModifier);
        if (held != Qt::ControlModifier && !shifted)
            return false;
        switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab: return Step(shifted ? -1 : 1);
        case Qt::Key_PageUp: return !shifted && Step(-1);
        case Qt::Key_PageDown: return !shifted && Step(1);
        default: return false;
        }
    }

    void SetAccessibleName(const QString& name) override {
        // Qt tells the selected tab's label for the strip, whatever its own name.
        fPane.setAccessibleName(name);
        fStrip.setAccessibleName(name);
    }

private:
    /// To the next tab that can be chosen, round and round.
    bool Step(int by) {
        const int count = fStrip.count();
        for (int i = 1; i < count; i++) {
            const int index = (fStrip.currentIndex() + i * by + i * count) % count;
            if (!fStrip.isTabEnabled(index))
                continue;
            fStrip.setCurrentIndex(index);
            break;
        }
        return true;
    }

    TabPane& fPane;
    QTabBar& fStrip;
    ControlReport fReport;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeTabView(QWidget* parent, ControlReport report) {
    return std::make_unique<TabViewWidget>(new TabPane(parent), std::move(report));
}

}  // namespace BPrivate
