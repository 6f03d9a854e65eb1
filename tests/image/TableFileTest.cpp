// Tables read from files and folders, and saved as dumps. What a dump or an image holds is in
// table-image.txt.

#include "samples/Machines.h"
#include "support/Tree.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Images::Bytes;
using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::TableImage;

Bytes ContentsOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The code and the words of what `call` throws; 0 where it throws nothing.
std::pair<int, std::string> FailureOf(const std::function<void()>& call)
{
    try {
        call();
        return {};
    } catch (const ResultStatus& failure) {
        return {failure.Code(), failure.Message()};
    }
}

class TableFile : public testing::Test {
protected:
    void SetUp() override
    {
        Folder = fs::path(testing::TempDir()) / ("table-file-" + std::to_string(getpid()));
        fs::create_directories(Folder / "empty");
    }
    void TearDown() override { fs::remove_all(Folder); }

    fs::path Put(const char* name, const Bytes& bytes) const
    {
        const fs::path file = Folder / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return file;
    }

    fs::path Folder;
};

TEST_F(TableFile, SaysWhatCannotBeReadAndWhatToDo)
{
    const Bytes entryPoint = Images::EntryPoint(2, 7, 13);
    Put("half/smbios_entry_point", entryPoint);
    Put("hollow/smbios_entry_point", entryPoint);
    Put("hollow/DMI", {});
    Put("vacant/smbios_entry_point", {});
    Put("strange/smbios_entry_point", Bytes(31, 'x'));
    Put("strange/DMI", Bytes(13));
    fs::resize_file(Put("largest", {1}), TableImage::MaxFileSize);
    fs::resize_file(Put("larger", {1}), TableImage::MaxFileSize + 1);
    ASSERT_EQ(mkfifo((Folder / "pipe").c_str(), 0600), 0);
    const struct {
        const char* Name;
        int Code;
        const char* What;
        const char* ToDo;
    } rows[] = {
        {"missing", 2101, "No such file", "check the name"},
        {"largest/missing", 2101, "Not a directory", "give a file or folder"},
        {"pipe", 2102, "neither a file nor a folder", "give a file or folder"},
        {"/dev/zero", 2102, "neither a file nor a folder", "give a file or folder"},
        {"/proc/self/mem", 2102, "error", "give a file or folder"}, // no end of the file, but a failure
        {"empty", 2103, "a folder without the files", "/sys/firmware/dmi/tables"},
        {"half", 2103, "DMI: No such file", "check the name"},
        {"hollow", 2104, "DMI: it is empty", "take the table again"},
        {"vacant", 2104, "smbios_entry_point: it is empty", "take the table again"},
        {"strange", 1013, "neither \"_SM_\" nor \"_SM3_\"", "take it again"},
        {"largest", 2107, "an image of 16777216 bytes", "cut off"},
        {"larger", 2107, "more than 16 MiB", "give a table image"},
    };
    for (const auto& row : rows) {
        const auto [code, message] = FailureOf([&] { TableImage::FromFile(Folder / row.Name); });
        EXPECT_EQ(code, row.Code) << row.Name;
        EXPECT_NE(message.find(row.What), std::string::npos) << row.Name << ": " << message;
        EXPECT_NE(message.find(row.ToDo), std::string::npos) << row.Name << ": " << message;
    }
}

// Both forms of the entry point, bytes behind the table's end structure, and about the largest table that the
// 32-bit form can have.
TEST_F(TableFile, ReadsWhatItSaves)
{
    const Bytes sample = TableImage::FromBytes(Images::TwoSocketServer()).Table();
    const Bytes roomy = Images::Join(sample, Bytes(9));
    const struct {
        const char* Name;
        Bytes Table;
        unsigned char Major, Minor;
        const char* Anchor;
    } rows[] = {
        {"2.7", sample, 2, 7, "_SM_"},
        {"3.0", sample, 3, 0, "_SM3"},
        {"2.8, with more behind the end", roomy, 2, 8, "_SM_"},
        {"3.0, which the 64-bit form would cut", roomy, 3, 0, "_SM_"},
        {"3.0, that ends within a structure", {200, 255, 0, 0}, 3, 0, "_SM3"},
        {"largest of 16 bits", Images::Join(sample, Bytes(65'535 - sample.size())), 2, 7, "_SM_"},
        {"larger, without an end", Bytes(65'536, 1), 2, 7, "_SM3"},
    };
    const fs::path file = Folder / "dump";
    for (const auto& row : rows) {
        const Bytes image = Images::Image(row.Table, row.Major, row.Minor);
        TableImage::FromBytes(image).Save(file);
        const Bytes dump = ContentsOf(file);
        EXPECT_EQ(std::string(dump.begin(), dump.begin() + 4), row.Anchor) << row.Name;
        const TableImage again = TableImage::FromFile(file);
        EXPECT_EQ(again.Table(), row.Table) << row.Name;
        EXPECT_EQ(again.Major(), row.Major) << row.Name;
        EXPECT_EQ(again.Minor(), row.Minor) << row.Name;
        if (row.Table.size() <= roomy.size()) {
            SMBIOSProtocolImpl object(again, Reading::ByVersion);
            EXPECT_TRUE(AreEqual(Everything(object), Everything(*Decoded(image)))) << row.Name;
        }
        fs::remove(file);
    }
}

TEST_F(TableFile, LeavesATableThatHoldsNothingWhereItIsMoved)
{
    TableImage from = TableImage::FromBytes(Images::TwoSocketServer());
    const TableImage to = std::move(from);
    EXPECT_FALSE(to.Table().empty());
    EXPECT_TRUE(from.As(2, 6).Table().empty()); // NOLINT(bugprone-use-after-move): what is asked for
}

// Other programs read every field.
TEST_F(TableFile, SavesWholeEntryPoints)
{
    const auto saved = [&](const char* name, unsigned char major) {
        const Bytes table = Images::Table({Images::Structure(11, 1).Byte(3).MoreText("text")});
        TableImage::FromBytes(Images::Image(table, major, 4)).Save(Folder / name);
        return ContentsOf(Folder / name);
    };
    // 11 bytes with the string, and 6 of the end structure.
    Bytes expected = Images::EntryPoint(2, 4, 17, 32);
    Bytes dump = saved("32", 2);
    expected[0x08] = 11; // the largest structure
    expected[0x1C] = 2;  // structures
    expected[0x15] = static_cast<unsigned char>(expected[0x15] - 2);
    expected[0x04] = static_cast<unsigned char>(expected[0x04] - 11);
    dump.resize(31);
    EXPECT_EQ(dump, expected);
    dump = saved("64", 3);
    dump.resize(24);
    EXPECT_EQ(dump, Images::EntryPoint64(3, 4, 17, 32));
}

TEST_F(TableFile, LeavesNoFileWhereItCannotBeSaved)
{
    const TableImage image = TableImage::FromBytes(Images::TwoSocketServer());
    const Bytes mine = {'m', 'i', 'n', 'e'};
    const auto save = [&](const char* name) { return FailureOf([&] { image.Save(Folder / name); }).first; };
    Put("mine", mine);
    fs::create_symlink("elsewhere", Folder / "link");
    EXPECT_EQ(save("mine"), 2108);
    EXPECT_EQ(save("link"), 2108);
    EXPECT_EQ(save("/dev/null"), 2108);
    EXPECT_EQ(save("no folder/dump"), 2109);
    EXPECT_EQ(ContentsOf(Folder / "mine"), mine);
    EXPECT_FALSE(fs::exists(Folder / "elsewhere"));

    // A limit in the place of a full disk.
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {1'000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto [code, message] = FailureOf([&] { image.Save(Folder / "dump"); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(code, 2109);
    EXPECT_EQ(message, "File too large; make room, or choose another place");
    EXPECT_FALSE(fs::exists(Folder / "dump"));
}

} // namespace
