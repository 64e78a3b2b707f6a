#include <app/Handler.h>
#include <app/Message.h>
#include <gtest/gtest.h>
#include <memory>

#include "tests/kits/app/Waiting.h"

TEST(Handler, HasAName) {
    BHandler handler("a name");
    EXPECT_STREQ(handler.Name(), "a name");
    handler.SetName(nullptr);
    EXPECT_EQ(handler.Name(), nullptr);
    EXPECT_EQ(BHandler().Name(), nullptr);
}

TEST(Handler, IsArchivedByClassAndName) {
    TestHandler handler([](BMessage*) {}, "a name");
    BMessage archive;
    EXPECT_EQ(handler.Archive(&archive), B_OK);
    EXPECT_STREQ(archive.GetString("class"), "TestHandler");
    EXPECT_TRUE(validate_instantiation(&archive, "TestHandler"));
    EXPECT_FALSE(validate_instantiation(&archive, "BHandler"));
    EXPECT_STREQ(BHandler(&archive).Name(), "a name");
    EXPECT_EQ(handler.Archive(nullptr), B_BAD_VALUE);
}

TEST(Handler, IsMadeFromItsArchive) {
    BMessage archive;
    EXPECT_EQ(instantiate_object(&archive), nullptr);
    EXPECT_EQ(instantiate_object(nullptr), nullptr);
    archive.AddString("class", "Unheard");
    archive.AddString("_name", "again");
    EXPECT_EQ(instantiate_object(&archive), nullptr);
    archive.ReplaceString("class", "BHandler");
    register_instantiation_func(
        "BHandler", [](BMessage* from) -> BArchivable* { return new BHandler(from); });
    const std::unique_ptr<BArchivable> object(instantiate_object(&archive));
    const auto* handler = dynamic_cast<BHandler*>(object.get());
    ASSERT_NE(handler, nullptr);
    EXPECT_STREQ(handler->Name(), "again");
}

TEST(Handler, PassesOnWhatItDoesNotKnow) {
    Journal journal;
    TestLooper looper([&journal](TestLooper&, BMessage* m) { journal.Write(m->what); });
    BHandler first, second;
    looper.AddHandler(&first);
    looper.AddHandler(&second);
    first.SetNextHandler(&second);
    BMessage message('test');
    first.MessageReceived(&message);
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'test'}));

    first.SetNextHandler(nullptr);
    first.MessageReceived(&message);
    EXPECT_EQ(journal.Commands().size(), 1U);
    BHandler stranger;
    first.SetNextHandler(&stranger);
    first.SetNextHandler(&first);
    EXPECT_EQ(first.NextHandler(), nullptr);
}

TEST(Handler, LocksItsLooper) {
    BHandler handler;
    EXPECT_FALSE(handler.LockLooper());
    EXPECT_EQ(handler.LockLooperWithTimeout(0), B_BAD_HANDLER);
    TestLooper looper;
    looper.AddHandler(&handler);
    EXPECT_TRUE(handler.LockLooper());
    EXPECT_EQ(looper.CountLocks(), 2);
    handler.UnlockLooper();
    EXPECT_EQ(looper.CountLocks(), 1);
    std::thread([&handler] { EXPECT_EQ(handler.LockLooperWithTimeout(1000), B_TIMED_OUT); }).join();
}
