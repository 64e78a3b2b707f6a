#pragma once

#include <QComboBox>
#include <QItemSelection>
#include <optional>
#include <vector>

#include "kits/interface/Display.h"

namespace BPrivate {

/// The part of a menu field that shows the marked item and opens the menu. The items of submenus
/// stand below the submenu's title, indented.
class MenuFieldBox : public QComboBox {
public:
    explicit MenuFieldBox(QWidget* parent) : QComboBox(parent) {}

    void SetMenu(const MenuFieldState& state);

    /// After the user has chosen another item: shows it from now on if it takes the mark by itself,
    /// and else again what the kits have marked.
    /// @return the number of the choice, by which the kits answer it
    int32 Chosen(int row);
    /// The item in that row; 0 when it cannot be chosen.
    int32 ItemAt(int row) const;

    /// As wide as the longest item. Qt's policy for that would also set the width by itself.
    QSize sizeHint() const override;

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Row {
        int32 item = 0;
        QString text;
        int depth = 0;
        bool separator = false;
        bool selectable = false;
        bool radio = false;

        bool operator==(const Row&) const = default;
    };

    /// What the user has chosen and the kits do not know yet.
    struct Choice {
        int32 item;
        int32 number;
    };

    static void Flatten(const std::vector<MenuItemState>& items, int depth, bool enabled,
        std::vector<Row>& rows, int& marked);
    void Fill();
    /// Assistive programs select a row of the menu without opening it.
    void ChooseUnopened(const QItemSelection& selected);
    void ShowMark();

    std::vector<Row> fRows;
    int fMarked = -1;  // by the kits
    std::optional<Choice> fUnanswered;
    bool fTakesKey = false;
};

}  // namespace BPrivate
