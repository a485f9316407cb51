#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "CatalogueTool.h"
#include "TextCodec.h"

// Runs the tool in a scratch folder of its own and keeps what it printed.
class ToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("velmora-katalog-") + test->test_suite_name() + "-" + test->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    int Run(const std::vector<std::string>& arguments) {
        std::vector<std::u16string> wide;
        for (const std::string& argument : arguments) wide.push_back(FromUtf8(argument));
        out.str("");
        err.str("");
        return RunCatalogueTool(wide, out, err);
    }

    std::string In(const std::string& name) const { return ToUtf8((folder / name).u16string()); }

    static std::string ReadBytes(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }
    void WriteBytes(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }

    std::filesystem::path folder;
    std::ostringstream out;
    std::ostringstream err;
};
