#include "platform/host/WholeFile.h"

#include "platform/runtime/Failure.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace Quillane {
namespace {

TEST(WholeFile, BytesAreReadBackUnchanged) {
    const FreshFolder folder;
    const std::string bytes("a\r\n\0b\xFF", 6);
    WriteWholeFile(folder.File("note"), bytes);
    EXPECT_EQ(ReadWholeFile(folder.File("note")), bytes);
    WriteWholeFile(folder.File("note"), "shorter");
    EXPECT_EQ(folder.Read("note"), "shorter");
}

TEST(WholeFile, MissingFileReadsAsEmpty) {
    const FreshFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.File("none")), "");
}

TEST(WholeFile, FolderCannotBeReadAsAFile) {
    const FreshFolder folder;
    EXPECT_EQ(FailureNumberOf([&] { ReadWholeFile(folder.path); }), FailureNumber::PathAccess);
}

TEST(WholeFile, FileOrFolderIsFlushedToTheDisk) {
    const FreshFolder folder;
    folder.Write("note", "text");
    FlushToDisk(folder.File("note"));
    FlushToDisk(folder.path);
    const Failure failure = FailureOf([&] { FlushToDisk(folder.File("none")); });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
    EXPECT_NE(failure.Description().find(folder.File("none") + " cannot be written to disk: "),
              std::string::npos);
}

TEST(WholeFile, FailedWriteNamesTheFileAndLeavesNoFile) {
    const FreshFolder folder;
    const std::string path = folder.File("missing/note");
    const Failure failure = FailureOf([&] { WriteWholeFile(path, "text"); });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
    EXPECT_NE(failure.Description().find(path), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

} // namespace
} // namespace Quillane
