#include "kits/desktop/MenuFieldBox.h"

#include <QAbstractItemView>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

constexpr int kIndent = 4;  // in spaces

}  // namespace

QSize MenuFieldBox::sizeHint() const {
    int width = fontMetrics().horizontalAdvance(placeholderText());
    for (int row = 0; row < count(); ++row)
        width = std::max(width, fontMetrics().horizontalAdvance(itemText(row)));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(
        QStyle::CT_ComboBox, &option, QSize(width, fontMetrics().height()), this);
}

void MenuFieldBox::SetMenu(const MenuFieldState& state) {
    std::vector<Row> rows;
    int marked = -1;
    Flatten(state.items, 0, true, rows, marked);
    setPlaceholderText(OneLine(state.title));
    if (rows != fRows) {
        hidePopup();
        fRows = std::move(rows);
        Fill();
    }
    fMarked = marked;
    // Marks that are older than the choice would take the box back, and the next key would start
    // from there.
    if (fUnanswered && state.choice >= fUnanswered->number)
        fUnanswered.reset();
    ShowMark();
}

void MenuFieldBox::ShowMark() {
    int shown = fMarked;
    if (fUnanswered) {
        const auto chosen = std::ranges::find(fRows, fUnanswered->item, &Row::item);
        if (chosen != fRows.end())
            shown = static_cast<int>(chosen - fRows.begin());
    }
    setCurrentIndex(shown);
}

void MenuFieldBox::Flatten(const std::vector<MenuItemState>& items, int depth, bool enabled,
    std::vector<Row>& rows, int& marked) {
    for (const MenuItemState& item : items) {
        const bool isOn = enabled && item.enabled;
        const bool isCommand = !item.separator && item.command;
        if (item.marked && isCommand && marked < 0)
            marked = static_cast<int>(rows.size());
        rows.push_back(
            {item.id, OneLine(item.label), depth, item.separator, isCommand && isOn, item.radio});
        if (item.hasSubmenu)
            Flatten(item.items, depth + 1, isOn, rows, marked);
    }
}

void MenuFieldBox::Fill() {
    QList<QStandardItem*> items;
    items.reserve(static_cast<qsizetype>(fRows.size()));
    for (const Row& row : fRows) {
        auto* item = new QStandardItem(QString(row.depth * kIndent, u' ') + row.text);
        item->setData(row.text, Qt::AccessibleTextRole);
        if (row.separator)  // in the words by which Qt knows one
            item->setData(QStringLiteral("separator"), Qt::AccessibleDescriptionRole);
        item->setFlags(row.selectable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags);
        items.append(item);
    }
    auto* filled = new QStandardItemModel(0, 1, this);
    filled->invisibleRootItem()->appendRows(items);
    setModel(filled);  // which deletes the one before
    connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &MenuFieldBox::ChooseUnopened);
}

void MenuFieldBox::ChooseUnopened(const QItemSelection& selected) {
    // In the open menu the pointer and the keys select what they pass, and letters do in the closed
    // one, which chooses by itself then.
    if (view()->isVisible() || fTakesKey || selected.isEmpty())
        return;
    const int row = selected.first().top();
    if (row == currentIndex() || ItemAt(row) == 0)
        return;
    setCurrentIndex(row);
    Q_EMIT activated(row);
}

int32 MenuFieldBox::ItemAt(int row) const {
    if (row < 0 || static_cast<size_t>(row) >= fRows.size())
        return 0;
    const Row& found = fRows[static_cast<size_t>(row)];
    return found.selectable ? found.item : 0;
}

int32 MenuFieldBox::Chosen(int row) {
    // Never used again, also not by the box that is made when this one's view comes back.
    static int32 sLastNumber = 0;
    const int32 number = ++sLastNumber;
    if (const int32 item = ItemAt(row); item != 0 && fRows[static_cast<size_t>(row)].radio)
        fUnanswered = {item, number};
    ShowMark();
    return number;
}

void MenuFieldBox::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    // Its place among the others means nothing where it stands alone.
    option->currentText = option->currentText.trimmed();
}

void MenuFieldBox::keyPressEvent(QKeyEvent* event) {
    fTakesKey = true;
    QComboBox::keyPressEvent(event);
    fTakesKey = false;
}

void MenuFieldBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

}  // namespace BPrivate
