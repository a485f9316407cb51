#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// A fresh folder for one test, named after it, removed afterwards.
class TempFolder {
public:
    TempFolder() {
        const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ = std::filesystem::temp_directory_path() /
                ("velmora-" + std::string(test->test_suite_name()) + "-" + std::string(test->name()));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // A path below the folder, as the model takes paths.
    std::u16string operator/(std::u16string_view relative) const { return (path_ / relative).u16string(); }

private:
    std::filesystem::path path_;
};

// The whole content of a file; empty when it cannot be read.
inline std::vector<std::uint8_t> FileBytes(const std::filesystem::path& path) {
    std::ifstream input(path, std::ios::binary);
    return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(input), {});
}
// Writes `bytes` as the whole file, making its folders first.
inline void WriteFileBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
