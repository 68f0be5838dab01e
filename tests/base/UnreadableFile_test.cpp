// What is there and cannot be looked at, opened or read is not missing: nothing is made or emptied in its place.

#include "UnreadableFileTest.h"

#include "base/Utf16File.h"
#include "support/FailingCalls.h"

using testing::ElementsAre;

namespace {

/// Runs `work` once for each of its looks, opens and reads, which then fails.
template <class Work>
int withEachLookFailing(int why, Work work)
{
    for (int n = 1;; ++n) {
        int count = 0;
        const FailingCalls failing([&](const Call& call) {
            const bool looks = call.name == "stat" || call.name == "lstat" || call.name == "fstat" ||
                               call.name == "open" || call.name == "read";
            return looks && ++count == n ? why : 0;
        });
        work();
        if (count < n) return n - 1;
    }
}

}  // namespace

TEST_F(UnreadableFile, AFailedLookDuringALoadEmptiesNoFile)
{
    const auto before = everything();
    std::vector reasons{EIO, EACCES, ELOOP};
#ifdef ESTALE
    reasons.push_back(ESTALE);
#endif
    for (const int why : reasons) {
        const int looks = withEachLookFailing(why, [] { LoadProject(); });
        EXPECT_GE(looks, 14) << "each of the seven files is opened twice at least";
        EXPECT_EQ(everything(), before) << why;
    }
}

TEST_F(UnreadableFile, AFailedLookAtTheStartEmptiesNoCatalogue)
{
    folder.project("乙");
    const auto before = everything();
    EXPECT_GE(withEachLookFailing(EIO, [] { attempt([] { OpenCatalogue(); }); }), 2);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(OpenCatalogue(), (std::vector<std::string>{"测试", "乙"}));
}

TEST_F(UnreadableFile, AFailedLookAtThePhoneListIsNoEmptyList)
{
    fs::create_directories(PhonePath());
    WriteUtf16File(PhonePath() + "/XMMC.txt", "甲\r\n");
    const FailingCalls failing([](const Call& call) { return call.name == "stat" ? EIO : 0; });
    EXPECT_EQ(ReadPhoneCatalogue(), std::vector<std::string>{"甲"}) << "read all the same";
}

TEST_F(UnreadableFile, AMissingFileIsMadeButNeverOneThatCameMeanwhile)
{
    Loaded loaded;
    for (const auto file : kAllFiles) folder.remove(std::string(file));
    int made = 0;
    {
        const FailingCalls watching([&](const Call& call) {
            if (call.name == "open" && call.flags & O_CREAT) {
                EXPECT_TRUE(call.flags & O_EXCL);
                ++made;
                if (call.path == ParameterFile(files::widths)) folder.writeBytes("超高宽度参数.txt", "came,");
            }
            return 0;
        });
        loaded = LoadProject();
    }
    EXPECT_GE(made, 7);
    for (const auto file : kAllFiles) EXPECT_TRUE(folder.has(std::string(file)));
    EXPECT_EQ(folder.bytes("超高宽度参数.txt"), "came,");
    EXPECT_THAT(unreadable(loaded), ElementsAre());
}
