#include "kits/interface/MenuTriggers.h"

#include <bitset>

namespace BPrivate {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// Bytes of characters beyond ASCII are no letters here, whatever the locale says.

bool IsSmall(char c) {
    return c >= 'a' && c <= 'z';
}

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsKey(char c) {
    return IsSmall(c) || IsCapital(c) || (c >= '0' && c <= '9');
}

char Small(char c) {
    return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

class Triggers {
public:
    explicit Triggers(const std::vector<TriggerWish>& items)
        : fItems(items), fFound(items.size(), -1) {}

    /// Asks `choose` for the place of a letter in the label of each item that has none yet.
    template <typename Choose>
    void Give(Choose choose) {
        for (std::size_t i = 0; i < fItems.size(); i++) {
            if (fFound[i] >= 0)
                continue;
            const std::size_t at = choose(fItems[i]);
            if (at == kNone || !IsFree(fItems[i].label[at]))
                continue;
            fFound[i] = static_cast<int32>(at);
            fTaken.set(static_cast<std::size_t>(Small(fItems[i].label[at])));
        }
    }

    bool IsFree(char c) const {
        return IsKey(c) && !fTaken.test(static_cast<std::size_t>(Small(c)));
    }

    std::vector<int32> Found() { return std::move(fFound); }

private:
    const std::vector<TriggerWish>& fItems;
    std::vector<int32> fFound;
    std::bitset<128> fTaken;
};

std::size_t AskedFor(const TriggerWish& item) {
    if (!IsKey(item.letter))
        return kNone;
    const std::size_t exact = item.label.find(item.letter);
    if (exact != kNone)
        return exact;
    const char pair[] = {Small(item.letter),
        IsSmall(Small(item.letter)) ? static_cast<char>(Small(item.letter) - 'a' + 'A') : '\0'};
    return item.label.find_first_of(std::string_view(pair, 2));
}

std::size_t HintBefore(const TriggerWish& item) {
    if (item.label.empty() || !IsKey(item.label.front()))
        return kNone;
    for (const std::string_view mark : {") ", " - ", "\u30fb"}) {
        if (item.label.substr(1).starts_with(mark))
            return 0;
    }
    return kNone;
}

/// The last one: a file's name may have some of its own, and the hint follows it.
std::size_t HintAfter(const TriggerWish& item) {
    for (std::size_t i = item.label.size(); i >= 3; i--) {
        const std::string_view part = item.label.substr(i - 3, 3);
        if (part.front() == '(' && part.back() == ')' && IsKey(part[1]))
            return i - 2;
    }
    return kNone;
}

}  // namespace

std::vector<int32> FindTriggers(const std::vector<TriggerWish>& items) {
    Triggers triggers(items);
    triggers.Give(AskedFor);
    triggers.Give(HintBefore);
    triggers.Give(HintAfter);
    triggers.Give([&](const TriggerWish& item) {
        for (const auto isWanted : {IsCapital, IsSmall}) {
            for (std::size_t i = 0; i < item.label.size(); i++) {
                if (isWanted(item.label[i]) && triggers.IsFree(item.label[i]))
                    return i;
            }
        }
        return kNone;
    });
    return triggers.Found();
}

}  // namespace BPrivate
