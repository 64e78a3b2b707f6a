#include "framework/ShortCutFilter.h"

#include <app/AppDefs.h>
#include <app/Handler.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>

namespace {

struct KeyCase {
    int32 modifiers;
    int32 rawChar;
    bool redirected;
};

constexpr KeyCase kKeys[] = {
    {0, 'a', false},
    {0, B_SPACE, false},
    {0, B_TAB, false},
    {0, B_PAGE_DOWN, false},
    {0, B_ESCAPE, true},
    {0, B_ENTER, true},
    {0, B_FUNCTION_KEY, true},
    {B_CONTROL_KEY, 'a', true},
    {B_CONTROL_KEY | B_SHIFT_KEY, 'a', true},
    {B_COMMAND_KEY, 'a', false},
    {B_SHIFT_KEY | B_OPTION_KEY, 'a', false},
    {B_SHIFT_KEY, B_ESCAPE, true},
};

BMessage key_down(const KeyCase& key) {
    BMessage message(B_KEY_DOWN);
    message.AddInt32("modifiers", key.modifiers);
    message.AddInt32("raw_char", key.rawChar);
    return message;
}

TEST(ShortCutFilter, IsForKeysOfAnySource) {
    const TShortCutFilter filter(nullptr);
    EXPECT_FALSE(filter.FiltersAnyCommand());
    EXPECT_EQ(filter.Command(), static_cast<uint32>(B_KEY_DOWN));
    EXPECT_EQ(filter.MessageDelivery(), B_ANY_DELIVERY);
    EXPECT_EQ(filter.MessageSource(), B_ANY_SOURCE);
}

TEST(ShortCutFilter, SendsShortCutsToItsHandler) {
    BHandler handler("handler");
    BHandler focused("focused");
    TShortCutFilter filter(&handler);
    for (const KeyCase& key : kKeys) {
        BMessage message = key_down(key);
        BHandler* target = &focused;
        EXPECT_EQ(filter.Filter(&message, &target), B_DISPATCH_MESSAGE);
        EXPECT_EQ(target, key.redirected ? &handler : &focused)
            << key.modifiers << " " << key.rawChar;
    }
}

TEST(ShortCutFilter, SendsShortCutsToItsLooperWithoutAHandler) {
    auto* looper = new BLooper("looper");
    BHandler focused("focused");
    auto* filter = new TShortCutFilter(nullptr);
    looper->AddCommonFilter(filter);
    for (const KeyCase& key : kKeys) {
        BMessage message = key_down(key);
        BHandler* target = &focused;
        EXPECT_EQ(filter->Filter(&message, &target), B_DISPATCH_MESSAGE);
        EXPECT_EQ(target, key.redirected ? looper : &focused)
            << key.modifiers << " " << key.rawChar;
    }
    looper->Quit();
}

TEST(ShortCutFilter, LetsAKeyWithoutFieldsPass) {
    BHandler handler("handler");
    BHandler focused("focused");
    TShortCutFilter filter(&handler);
    BMessage message(B_KEY_DOWN);
    BHandler* target = &focused;
    EXPECT_EQ(filter.Filter(&message, &target), B_DISPATCH_MESSAGE);
    EXPECT_EQ(target, &focused);
    message.AddInt32("modifiers", B_CONTROL_KEY);
    EXPECT_EQ(filter.Filter(&message, &target), B_DISPATCH_MESSAGE);
    EXPECT_EQ(target, &handler);
}

}  // namespace
