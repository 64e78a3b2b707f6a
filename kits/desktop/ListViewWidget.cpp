#include <QItemSelection>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

class RowList : public QListWidget {
public:
    explicit RowList(QWidget* parent) : QListWidget(parent) {
        // Thousands of rows are not to be measured one by one.
        setUniformItemSizes(true);
        setTextElideMode(Qt::ElideRight);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

    /// Now, or once it is shown: until then the list does not know its size.
    void ShowRow(int row) {
        fRowToShow = row;
        if (isVisible())
            ScrollThere();
    }

    /// Wide enough for the widest row, and as high as all of them.
    QSize sizeHint() const override {
        const int frame = 2 * frameWidth();
        const int bar = verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff
            ? 0
            : verticalScrollBar()->sizeHint().width();
        constexpr int kHighest = 32767;
        const int height = static_cast<int>(
            std::min<qint64>(qint64{std::max(0, sizeHintForRow(0))} * count(), kHighest));
        return {std::max(0, sizeHintForColumn(0)) + frame + bar, height + frame};
    }

protected:
    void showEvent(QShowEvent* event) override {
        QListWidget::showEvent(event);
        ScrollThere();
    }

private:
    void ScrollThere() {
        if (QListWidgetItem* item = this->item(std::exchange(fRowToShow, -1)); item != nullptr)
            scrollToItem(item);
    }

    int fRowToShow = -1;
};

class ListViewWidget : public ControlWidget {
public:
    ListViewWidget(RowList* list, ControlReport report)
        : ControlWidget(list), fList(*list), fReport(std::move(report)) {
        QObject::connect(&fList, &QListWidget::itemSelectionChanged, &fList, [this] {
            if (SelectedRows() != fShown.selected)
                Report(-1);
        });
        QObject::connect(&fList, &QListWidget::itemDoubleClicked, &fList,
            [this](QListWidgetItem* item) { Report(fList.row(item)); });
    }

    void SetState(const ControlState& state) override {
        const auto& list = std::get<ListViewState>(state);
        const QSignalBlocker blocker(fList);
        fList.setAutoScroll(false);  // only the user's own moves scroll by themselves
        fList.setSelectionMode(list.multiple ? QAbstractItemView::ExtendedSelection
                                             : QAbstractItemView::SingleSelection);
        fList.setVerticalScrollBarPolicy(
            list.scrollBar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
        ShowBorder(list.border);
        if (list.rows != fShown.rows || list.disabled != fShown.disabled)
            ShowRows(list);
        if (SelectedRows() != list.selected)
            ShowSelection(list.selected);
        if (list.scrollSerial != fShown.scrollSerial && !list.selected.empty())
            fList.ShowRow(list.selected.front());
        fList.setAutoScroll(true);
        fShown = list;
    }

private:
    void ShowBorder(border_style border) {
        switch (border) {
        case B_FANCY_BORDER: fList.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken); break;
        case B_PLAIN_BORDER: fList.setFrameStyle(QFrame::Box | QFrame::Plain); break;
        default: fList.setFrameStyle(QFrame::NoFrame);
        }
    }

    /// The place of the list and of its cursor stay where they are.
    void ShowRows(const ListViewState& list) {
        const int place = fList.verticalScrollBar()->value();
        const int cursor = fList.currentRow();
        const int count = static_cast<int>(list.rows.size());
        while (fList.count() > count)
            delete fList.takeItem(fList.count() - 1);
        QStringList added;
        for (int i = 0; i < count; i++) {
            const QString text = QString::fromStdString(list.rows[static_cast<size_t>(i)]);
            QListWidgetItem* item = fList.item(i);
            if (item == nullptr)
                added.push_back(text);
            else if (item->text() != text)
                item->setText(text);
        }
        fList.addItems(added);
        if (!list.disabled.empty() || !fShown.disabled.empty()) {
            for (int i = 0; i < count; i++) {
                const bool enabled = !std::ranges::binary_search(list.disabled, i);
                fList.item(i)->setFlags(
                    enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
            }
        }
        if (cursor >= 0 && count > 0) {
            fList.setCurrentRow(std::min(cursor, count - 1), QItemSelectionModel::NoUpdate);
        }
        fList.verticalScrollBar()->setValue(place);
    }

    void ShowSelection(const std::vector<int32>& rows) {
        QItemSelection selection;
        for (size_t i = 0; i < rows.size();) {
            size_t end = i + 1;
            while (end < rows.size() && rows[end] == rows[end - 1] + 1)
                end++;
            const QAbstractItemModel& model = *fList.model();
            selection.select(model.index(rows[i], 0), model.index(rows[end - 1], 0));
            i = end;
        }
        fList.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        // The arrow keys go on from here.
        if (!rows.empty() && !std::ranges::binary_search(rows, fList.currentRow()))
            fList.setCurrentRow(rows.front(), QItemSelectionModel::NoUpdate);
    }

    std::vector<int32> SelectedRows() const {
        std::vector<int32> rows;
        for (const QModelIndex& index : fList.selectionModel()->selectedIndexes())
            rows.push_back(index.row());
        std::ranges::sort(rows);
        return rows;
    }

    void Report(int invoked) {
        fShown.selected = SelectedRows();
        BMessage change;
        for (const int32 row : fShown.selected)
            change.AddInt32("selected", row);
        if (invoked >= 0)
            change.AddInt32("invoked", invoked);
        fReport(change);
    }

    RowList& fList;
    ListViewState fShown;
    ControlReport fReport;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeListView(QWidget* parent, ControlReport report) {
    return std::make_unique<ListViewWidget>(new RowList(parent), std::move(report));
}

}  // namespace BPrivate
