#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

extern "C" {
int DbfFuzz(const std::uint8_t* data, std::size_t size);
int DialectFuzz(const std::uint8_t* data, std::size_t size);
int ProfileFuzz(const std::uint8_t* data, std::size_t size);
}

namespace {

/// A fuzzer ends the process when it finds something.
void Replay(int (*fuzzer)(const std::uint8_t*, std::size_t), const std::string& name) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KUVEL_SOURCE_DIR "/tests/fuzz/seeds/" + name)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        ASSERT_FALSE(bytes.empty()) << entry.path();
        std::fprintf(stderr, "%s\n", entry.path().c_str());
        EXPECT_EQ(0, fuzzer(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size())) << entry.path();
        ++files;
    }
    EXPECT_GT(files, 0);
}

} // namespace

TEST(FuzzSeeds, OfTablesAreReplayed) {
    Replay(DbfFuzz, "DbfFuzz");
}

TEST(FuzzSeeds, OfStatementsAreReplayed) {
    Replay(DialectFuzz, "DialectFuzz");
}

TEST(FuzzSeeds, OfSettingsAreReplayed) {
    Replay(ProfileFuzz, "ProfileFuzz");
}
