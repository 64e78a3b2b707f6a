#pragma once

#include <app/Message.h>
#include <gtest/gtest.h>
#include <string>

#include "framework/MessageCodes.h"
#include "iap/IAPItem.h"
#include "tests/framework/TestWindows.h"
#include "tests/iap/SharedFiles.h"

/// An item in memory, which tells what happens to it.
class TTestItem : public TIAPItem {
public:
    explicit TTestItem(const std::string& name, TLog* log = nullptr, const std::string& tag = "")
        : TIAPItem(name), fLog(log), fTag(tag) {}
    ~TTestItem() override { Tell("deleted"); }

    status_t GetBool(bool* value, bool defaults) const override {
        EXPECT_FALSE(defaults);
        *value = fFlag;
        return B_OK;
    }
    status_t SetBool(bool value) override {
        fFlag = value;
        return B_OK;
    }
    status_t GetString(std::string* value, bool defaults) const override {
        EXPECT_FALSE(defaults);
        *value = fText;
        return B_OK;
    }
    status_t SetString(const std::string& value) override {
        fText = value;
        return B_OK;
    }
    status_t SetValue(const BMessage& change) override {
        Tell("set");
        return change.GetInt32("answer", B_OK);
    }

private:
    void Tell(const std::string& what) const {
        if (fLog != nullptr)
            fLog->Add((fTag.empty() ? Name() : fTag) + " " + what);
    }

    TLog* fLog;
    std::string fTag;
    bool fFlag = false;
    std::string fText = "first";
};

/// A change of that item by another application, with "tag" to tell it from others.
inline BMessage change_of(const char* item, const char* tag = "change") {
    BMessage change(kMsgSharedItemChanged);
    change.AddString("IAP:SrcApp", kOtherApp);
    change.AddString("IAP:SrcIAPItem", item);
    change.AddString("tag", tag);
    return change;
}
