#include "tests/kits/storage/TemporaryFolder.h"
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <storage/Entry.h>
#include <storage/File.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

using FileTest = TemporaryFolder;

static constexpr uint32 kSave = B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE;

TEST_F(FileTest, TheModesHaveTheirNumbers) {
    EXPECT_EQ(kSave, 0x601u);
}

TEST_F(FileTest, ReadsAndWritesAtPositions) {
    BFile file(Place("file").c_str(), B_READ_WRITE | B_CREATE_FILE);
    ASSERT_EQ(file.InitCheck(), B_OK);
    EXPECT_EQ(file.Write("0123456789", 10), 10);
    EXPECT_EQ(file.Position(), 10);
    EXPECT_EQ(file.Seek(-4, SEEK_END), 6);
    char buffer[16] = {};
    EXPECT_EQ(file.Read(buffer, sizeof(buffer)), 4);
    EXPECT_STREQ(buffer, "6789");
    EXPECT_EQ(file.Read(buffer, sizeof(buffer)), 0);
    EXPECT_EQ(file.ReadAt(2, buffer, 2), 2);
    EXPECT_EQ(file.Position(), 10);
    EXPECT_EQ(file.WriteAt(0, "X", 1), 1);
    EXPECT_EQ(file.Seek(-1, SEEK_SET), B_BAD_VALUE);
    EXPECT_EQ(file.Seek(0, 77), B_BAD_VALUE);
    EXPECT_EQ(file.SetSize(3), B_OK);
    off_t size = 0;
    EXPECT_EQ(file.GetSize(&size), B_OK);
    EXPECT_EQ(size, 3);
    EXPECT_EQ(Contents(Place("file")), "X12");
}

TEST_F(FileTest, OpensByItsMode) {
    BFile file;
    EXPECT_EQ(file.SetTo(Place("file").c_str(), B_READ_ONLY), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(file.SetTo(Place("file").c_str(), B_WRITE_ONLY | B_ERASE_FILE), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(file.SetTo("", B_READ_ONLY), B_BAD_VALUE);
    EXPECT_EQ(file.SetTo(Place("file").c_str(), 3), B_BAD_VALUE);
    MakeFile("file", "old");
    EXPECT_EQ(file.SetTo(Place("file").c_str(), B_WRITE_ONLY | B_CREATE_FILE | B_FAIL_IF_EXISTS),
        B_FILE_EXISTS);
    EXPECT_EQ(file.InitCheck(), B_FILE_EXISTS);
    char buffer[4];
    EXPECT_EQ(file.Read(buffer, 1), B_NO_INIT);
    ASSERT_EQ(file.SetTo(Place("file").c_str(), B_READ_ONLY), B_OK);
    EXPECT_TRUE(file.IsReadable());
    EXPECT_FALSE(file.IsWritable());
    EXPECT_EQ(file.Write("x", 1), B_NOT_ALLOWED);
    ASSERT_EQ(file.SetTo(Place("file").c_str(), B_WRITE_ONLY | B_OPEN_AT_END), B_OK);
    EXPECT_EQ(file.Read(buffer, 1), B_NOT_ALLOWED);
    EXPECT_EQ(file.Write("er", 2), 2);
    EXPECT_EQ(Contents(Place("file")), "older");
    ASSERT_EQ(
        file.SetTo(Place("new").c_str(), B_WRITE_ONLY | B_CREATE_FILE | B_FAIL_IF_EXISTS), B_OK);
    EXPECT_TRUE(BEntry(Place("new").c_str()).Exists());
}

TEST_F(FileTest, NeverWaitsForWhatIsNoFile) {
    ASSERT_EQ(mkfifo(Place("pipe").c_str(), 0666), 0);
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{AF_UNIX, {}};
    strncpy(address.sun_path, Place("socket").c_str(), sizeof(address.sun_path) - 1);
    ASSERT_EQ(bind(socketFile, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    std::filesystem::create_symlink("pipe", Place("link"));
    for (const std::string& path : {Place("pipe"), Place("socket"), Place("link"),
             std::string("/dev/zero"), std::string("/dev/null")}) {
        for (uint32 mode :
            {uint32(B_READ_ONLY), uint32(B_WRITE_ONLY), uint32(B_READ_WRITE), kSave}) {
            BFile file(path.c_str(), mode);
            EXPECT_EQ(file.InitCheck(), B_BAD_VALUE) << path << " " << mode;
        }
    }
    close(socketFile);
}

TEST_F(FileTest, AFolderOpensForReadingOnlyAndGivesNothing) {
    BFile file(Folder().c_str(), B_READ_ONLY);
    EXPECT_EQ(file.InitCheck(), B_OK);
    EXPECT_TRUE(file.IsDirectory());
    char buffer[4];
    EXPECT_EQ(file.Read(buffer, sizeof(buffer)), B_IS_A_DIRECTORY);
    EXPECT_EQ(file.ReadAt(0, buffer, sizeof(buffer)), B_IS_A_DIRECTORY);
    EXPECT_EQ(file.SetTo(Folder().c_str(), B_READ_WRITE), B_IS_A_DIRECTORY);
    EXPECT_EQ(file.SetTo(Folder().c_str(), kSave), B_IS_A_DIRECTORY);
}

TEST_F(FileTest, AReplacedFileIsTheOldOneUntilItIsClosed) {
    MakeFile("file", "old");
    {
        BFile file(Place("file").c_str(), kSave);
        ASSERT_EQ(file.InitCheck(), B_OK);
        EXPECT_EQ(file.Write("new contents", 12), 12);
        EXPECT_EQ(Contents(Place("file")), "old");
        EXPECT_EQ(EntryCount(), 1u);
    }
    EXPECT_EQ(Contents(Place("file")), "new contents");
    EXPECT_EQ(EntryCount(), 1u);
}

TEST_F(FileTest, AFirstFileAppearsWhenItIsClosed) {
    {
        BFile file(Place("file").c_str(), kSave);
        EXPECT_EQ(file.Write("x", 1), 1);
        EXPECT_EQ(EntryCount(), 0u);
    }
    EXPECT_EQ(Contents(Place("file")), "x");
    const mode_t mask = umask(0);
    umask(mask);
    struct stat st;
    ASSERT_EQ(stat(Place("file").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0666 & ~mask);
}

TEST_F(FileTest, AFileThatNothingWasWrittenToIsEmpty) {
    MakeFile("file", "old");
    BFile(Place("file").c_str(), kSave);
    EXPECT_EQ(Contents(Place("file")), "");
}

TEST_F(FileTest, ACrashLeavesTheOldFile) {
    MakeFile("file", "old");
    const pid_t child = fork();
    if (child == 0) {
        BFile file(Place("file").c_str(), kSave);
        (void)file.Write("half of the n", 13);
        raise(SIGKILL);
    }
    int result = 0;
    ASSERT_EQ(waitpid(child, &result, 0), child);
    EXPECT_TRUE(WIFSIGNALED(result));
    EXPECT_EQ(Contents(Place("file")), "old");
    EXPECT_EQ(EntryCount(), 1u);
}

TEST_F(FileTest, AFailedWriteLeavesTheOldFileAndSaysSo) {
    MakeFile("file", "old");
    // A limit on the size of files stands for a full disk.
    rlimit old;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    {
        BFile file(Place("file").c_str(), kSave);
        const std::string big(10000, 'n');
        EXPECT_LT(file.Write(big.data(), big.size()), 0);
        EXPECT_EQ(file.Write("more", 4), 4);
        EXPECT_LT(file.Sync(), 0);
    }
    setrlimit(RLIMIT_FSIZE, &old);
    signal(SIGXFSZ, handler);
    EXPECT_EQ(Contents(Place("file")), "old");
    EXPECT_EQ(EntryCount(), 1u);
}

TEST_F(FileTest, SyncPutsTheFileInItsPlaceAndWritingGoesOn) {
    MakeFile("file", "old");
    BFile file(Place("file").c_str(), kSave);
    EXPECT_EQ(file.Write("new", 3), 3);
    EXPECT_EQ(file.Sync(), B_OK);
    EXPECT_EQ(Contents(Place("file")), "new");
    EXPECT_EQ(file.Write("er", 2), 2);
    EXPECT_EQ(Contents(Place("file")), "newer");
    EXPECT_EQ(file.Sync(), B_OK);
    file.Unset();
    EXPECT_EQ(Contents(Place("file")), "newer");
    EXPECT_EQ(file.Sync(), B_NO_INIT);
}

TEST_F(FileTest, AReplacedFileKeepsPermissionsAttributesAndLinks) {
    const std::string real = MakeFile("real", "old");
    chmod(real.c_str(), 0640);
    BNode(real.c_str()).WriteAttr("note", 'NOTE', 0, "1234", 4);
    std::filesystem::create_symlink("real", Place("link"));
    std::filesystem::create_symlink("other", Place("dangling"));
    {
        BFile file(Place("link").c_str(), kSave);
        ASSERT_EQ(file.InitCheck(), B_OK);
        (void)file.Write("new", 3);
        file.WriteAttr("second", 'NOTE', 0, "5678", 4);
    }
    EXPECT_TRUE(std::filesystem::is_symlink(Place("link")));
    EXPECT_EQ(Contents(real), "new");
    struct stat st;
    ASSERT_EQ(stat(real.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    BNode node(real.c_str());
    attr_info info;
    EXPECT_EQ(node.GetAttrInfo("note", &info), B_OK);
    EXPECT_EQ(info.type, type_code('NOTE'));
    EXPECT_EQ(node.GetAttrInfo("second", &info), B_OK);

    BFile(Place("dangling").c_str(), kSave);
    EXPECT_TRUE(std::filesystem::is_symlink(Place("dangling")));
    EXPECT_TRUE(std::filesystem::is_regular_file(Place("other")));
}

TEST_F(FileTest, OpeningTheSameFileAgainClosesItFirst) {
    BFile file(Place("file").c_str(), kSave);
    (void)file.Write("text", 4);
    ASSERT_EQ(file.SetTo(Place("file").c_str(), B_READ_ONLY), B_OK);
    char buffer[8] = {};
    EXPECT_EQ(file.Read(buffer, sizeof(buffer)), 4);
    EXPECT_STREQ(buffer, "text");
}

TEST_F(FileTest, AnOrdinaryUserIsRefusedWhatHeMayNotWrite) {
    MakeFile("file", "old");
    chmod(Place("file").c_str(), 0444);
    chmod(Folder().c_str(), 0777);
    const pid_t child = fork();
    if (child == 0) {
        if (getuid() == 0 && setresuid(65534, 65534, 65534) != 0)
            _exit(2);
        BFile file(Place("file").c_str(), kSave);
        _exit(file.InitCheck() == B_PERMISSION_DENIED ? 0 : 1);
    }
    int result = -1;
    ASSERT_EQ(waitpid(child, &result, 0), child);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Contents(Place("file")), "old");
}

TEST_F(FileTest, AForeignFileThatMayBeWrittenIsWrittenInPlace) {
    MakeFile("file", "old contents");
    chmod(Place("file").c_str(), 0666);
    chmod(Folder().c_str(), 0777);
    struct stat before;
    ASSERT_EQ(stat(Place("file").c_str(), &before), 0);
    if (before.st_uid != 0)
        GTEST_SKIP() << "only the superuser can act for another";
    const pid_t child = fork();
    if (child == 0) {
        if (setresuid(65534, 65534, 65534) != 0)
            _exit(2);
        {
            BFile file(Place("file").c_str(), kSave);
            if (file.Write("new", 3) != 3)
                _exit(1);
        }
        _exit(0);
    }
    int result = -1;
    ASSERT_EQ(waitpid(child, &result, 0), child);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Contents(Place("file")), "new");
    struct stat after;
    ASSERT_EQ(stat(Place("file").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_uid, before.st_uid);
}
