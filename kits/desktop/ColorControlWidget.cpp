#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <array>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/ShareSlider.h"

namespace BPrivate {

namespace {

/// The desktop's words for the shares, from its own dialog for colours.
constexpr const char* kShareNames[] = {
    QT_TRANSLATE_NOOP("QColorDialog", "&Red:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Green:"),
    QT_TRANSLATE_NOOP("QColorDialog", "Bl&ue:"),
};

/// The word without the mark of a shortcut, of which the kits have their own, and without the
/// colon. East Asian texts put the mark in brackets behind it.
QString PlainName(const char* key) {
    QString name = QCoreApplication::translate("QColorDialog", key);
    if (const qsizetype mark = name.indexOf(QStringLiteral("(&")); mark >= 0)
        name.remove(mark, 4);
    name.remove(u'&');
    while (name.endsWith(u':') || name.endsWith(u'：') || name.endsWith(u' '))
        name.chop(1);
    return name;
}

/// Three rows, one for each share: its name, a slider and a field.
class ShareRows : public QWidget {
public:
    ShareRows(QWidget* parent, std::function<void(QColor)> changed)
        : QWidget(parent), fChanged(std::move(changed)) {
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setHorizontalSpacing(6);
        grid->setVerticalSpacing(2);
        grid->setColumnStretch(1, 1);
        for (int i = 0; i < 3; i++) {
            Row& row = fRows[static_cast<size_t>(i)];
            row.label = new QLabel(this);
            row.slider = new ShareSlider(i, this);
            row.field = new QSpinBox(this);
            row.field->setRange(0, 255);
            row.label->setBuddy(row.field);
            grid->addWidget(row.label, i, 0);
            grid->addWidget(row.slider, i, 1);
            grid->addWidget(row.field, i, 2);
            connect(row.slider, &QSlider::valueChanged, this, [this, i](int v) { Change(i, v); });
            connect(row.field, &QSpinBox::valueChanged, this, [this, i](int v) { Change(i, v); });
        }
        setFocusProxy(fRows[0].slider);
        ShowNames();
    }

    void SetColor(QColor color) {
        const std::array<int, 3> shares{color.red(), color.green(), color.blue()};
        for (size_t i = 0; i < fRows.size(); i++) {
            const QSignalBlocker sliderBlocker(fRows[i].slider);
            const QSignalBlocker fieldBlocker(fRows[i].field);
            fRows[i].slider->setValue(shares[i]);
            fRows[i].slider->SetColor(color);
            if (fRows[i].field->value() != shares[i])
                fRows[i].field->setValue(shares[i]);
        }
        fColor = color;
    }

    std::vector<QWidget*> Parts() const {
        std::vector<QWidget*> parts;
        for (const Row& row : fRows) {
            parts.push_back(row.slider);
            parts.push_back(row.field);
        }
        return parts;
    }

protected:
    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::LanguageChange)
            ShowNames();
    }

private:
    struct Row {
        QLabel* label = nullptr;
        ShareSlider* slider = nullptr;
        QSpinBox* field = nullptr;
    };

    void ShowNames() {
        for (size_t i = 0; i < fRows.size(); i++) {
            const QString name = PlainName(kShareNames[i]);
            fRows[i].label->setText(name);
            fRows[i].slider->setAccessibleName(name);
            fRows[i].field->setAccessibleName(name);
        }
    }

    void Change(int share, int value) {
        QColor color = fColor;
        switch (share) {
        case 0: color.setRed(value); break;
        case 1: color.setGreen(value); break;
        default: color.setBlue(value);
        }
        if (color == fColor)
            return;
        SetColor(color);
        fChanged(color);
    }

    std::function<void(QColor)> fChanged;
    std::array<Row, 3> fRows;
    QColor fColor{0, 0, 0};
};

class ColorControlWidget : public ControlWidget {
public:
    explicit ColorControlWidget(ShareRows* rows) : ControlWidget(rows), fRows(*rows) {}

    QWidget& FocusWidget() override { return *fRows.Parts().front(); }
    std::vector<QWidget*> KeyWidgets() override { return fRows.Parts(); }

    void SetState(const ControlState& state) override {
        const rgb_color color = std::get<ColorControlState>(state).value;
        fRows.SetColor(QColor(color.red, color.green, color.blue));
    }

private:
    ShareRows& fRows;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeColorControl(QWidget* parent, ControlReport report) {
    const auto changed = [report = std::move(report)](QColor color) {
        BMessage change;
        change.AddInt32("color", static_cast<int32>(color.rgb() & 0xffffffU));
        report(change);
    };
    return std::make_unique<ColorControlWidget>(new ShareRows(parent, changed));
}

}  // namespace BPrivate
