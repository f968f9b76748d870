#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace {

using Folders = std::set<std::string>;

/// What each folder may include of the others. Dialogs and wizard pages of report/ and import/ are windows.
const std::map<std::string, Folders> Allowed = {
    {"store", {}},
    {"rules", {"store"}},
    {"report", {"store", "rules"}},
    {"import", {"store", "rules"}},
    {"ctl", {"store", "rules", "report", "import"}},
    {"registers", {"store", "rules"}},
    {"app", {"store", "rules", "report", "import", "registers"}},
};

bool IsWindow(const std::filesystem::path& file) {
    const std::string stem = file.stem().string();
    return stem.ends_with("Dlg") || stem.ends_with("Wizard") || stem.starts_with("Page");
}

TEST(Layers, NoArrowPointsBackAndNoWidgetIsInTheCore) {
    const std::regex include("^#include [\"<]([^\">]+)[\">]");
    const std::set<std::string> core = {"store", "rules", "report", "import", "ctl"};
    int files = 0;
    for (const auto& [folder, allowed] : Allowed) {
        const std::filesystem::path root = std::filesystem::path(KUVEL_SOURCE_DIR) / folder;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
                continue;
            ++files;
            const bool window = IsWindow(entry.path());
            std::ifstream stream(entry.path());
            for (std::string line; std::getline(stream, line);) {
                std::smatch match;
                if (!std::regex_search(line, match, include))
                    continue;
                const std::string header = match[1];
                const std::string other = header.substr(0, header.find('/'));
                if (other != folder && Allowed.contains(other) && !(window && other == "registers")) {
                    EXPECT_TRUE(allowed.contains(other)) << entry.path() << " includes " << header;
                }
                if (core.contains(folder) && !window) {
                    EXPECT_FALSE(header.starts_with("QW") || header.starts_with("QtWidgets") ||
                                 header == "QMessageBox" || header == "QFileDialog" || header == "QDialog" ||
                                 header == "QApplication")
                        << entry.path() << " includes " << header;
                }
                if (folder != "app") {
                    EXPECT_FALSE(header == "QMessageBox" || header == "QFileDialog")
                        << entry.path() << " asks past the doors";
                }
            }
        }
    }
    EXPECT_GT(files, 20);
}

} // namespace
