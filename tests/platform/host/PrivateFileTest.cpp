#include "platform/host/PrivateFile.h"

#include "station/FreshFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace Quillane {
namespace {

class PrivateFile : public testing::Test {
protected:
    /// Creates the file under the usual umask, which removes the write permission of the group.
    mode_t RightsInFolderOf(mode_t folderRights) {
        ::chmod(fresh.path.c_str(), folderRights);
        const mode_t before = ::umask(0022);
        MakePrivateFile(fresh.File("Account1.db"));
        ::umask(before);
        struct stat made {};
        EXPECT_EQ(::stat(fresh.File("Account1.db").c_str(), &made), 0);
        return made.st_mode & 07777;
    }

    FreshFolder fresh;
};

TEST_F(PrivateFile, OnlyOwnerAndGroupHaveAccess) {
    EXPECT_EQ(RightsInFolderOf(0755), 0640u);
}

TEST_F(PrivateFile, GroupCanWriteInAFolderWithTheSetGroupIdBit) {
    EXPECT_EQ(RightsInFolderOf(02770), 0660u);
}

} // namespace
} // namespace Quillane
