#include "tests/core/XlsFile.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>

// The templates as they were built, read without the office and held against the rules by which the report looks for
// a template, accepts it and writes into it. The rules are written down here once more, on purpose.

namespace fs = std::filesystem;
using EKind = CXlsFile::CCell::EKind;

static const fs::path g_folder = fs::path(KUVEL_BIN_DIR) / "templates";
static const std::string g_notApplicable = "×";

static std::optional<fs::path> FindTemplate(int year, int quarter) {
    const std::string stem = "vykaz" + std::to_string(year);
    std::vector<std::string> names{stem + "_" + std::to_string(quarter)};
    for (int earlier = quarter - 1; year >= 2009 && earlier >= 1; --earlier)
        names.push_back(stem + "_" + std::to_string(earlier));
    names.push_back(stem);
    for (const std::string& name : names)
        if (fs::exists(g_folder / (name + ".tpl")))
            return g_folder / (name + ".tpl");
    return std::nullopt;
}

/// In hundredths; the digits after the point are a number, so that 2.9 comes before 2.10.
static int VersionValue(const std::string& text) {
    const auto point = text.find('.');
    return std::stoi(text) * 100 + (point == std::string::npos ? 0 : std::stoi(text.substr(point + 1)));
}

static bool Accepts(const std::string& version, int templateQuarter, int year, int quarter) {
    struct CLine {
        const char* version;
        int year;
        int from;
        int to;
    };
    static const CLine lines[] = {
        {"1.4", 2003, 1, 4}, {"1.5", 2004, 1, 1}, {"2.0", 2004, 2, 4},  {"2.1", 2005, 1, 4},  {"2.2", 2006, 1, 1},
        {"2.3", 2006, 2, 2}, {"2.4", 2006, 1, 4}, {"2.5", 2007, 1, 4},  {"2.6", 2008, 1, 2},  {"2.7", 2008, 1, 4},
        {"2.8", 2009, 1, 1}, {"2.9", 2009, 2, 2}, {"2.10", 2009, 3, 4}, {"2.11", 2010, 1, 1},
    };
    for (const CLine& line : lines)
        if (version == line.version && year == line.year && quarter >= line.from && quarter <= line.to)
            return true;
    const int value = VersionValue(version);
    return (value > 211 && year == 2010 && quarter >= 2) || (value >= 215 && year == 2011) ||
           (value >= 219 && year == 2012 && quarter == templateQuarter);
}

TEST(Templates, EveryQuarterFindsATemplateThatIsAcceptedAndNamesIt) {
    const std::vector<std::string> sheets{"Úvod", "1-1", "1-2", "1-3", "1-4", "2-1", "2-2", "2-3", "2-4", "3-1", "4-1"};
    std::set<fs::path> used;
    for (int year = 2003; year <= 2012; ++year)
        for (int quarter = 1; quarter <= 4; ++quarter) {
            SCOPED_TRACE(std::to_string(year) + "/" + std::to_string(quarter));
            const auto path = FindTemplate(year, quarter);
            ASSERT_TRUE(path);
            used.insert(*path);
            const CXlsFile file(*path);
            EXPECT_EQ(file.SheetNames(), sheets);
            const auto version = file.Cell("Úvod", "A1");
            ASSERT_EQ(version.kind, EKind::Text) << "2.10 as a number would be 2.1";
            const auto templateQuarter = file.Cell("Úvod", "D4");
            if (VersionValue(version.text) < 211) {
                EXPECT_EQ(templateQuarter.kind, EKind::Empty) << "the report writes the quarter";
            } else {
                // Nobody writes D4, so only a template of this very quarter makes a report that says the right one.
                EXPECT_EQ(templateQuarter.kind, EKind::Number);
                EXPECT_EQ(templateQuarter.number, quarter);
            }
            EXPECT_TRUE(Accepts(version.text, static_cast<int>(templateQuarter.number), year, quarter)) << version.text;
            EXPECT_EQ(file.Text("Úvod", "E4"), "čtvrtletí " + std::to_string(year));
        }
    for (const auto& entry : fs::directory_iterator(g_folder)) {
        if (entry.path().extension() == ".tpl") {
            EXPECT_TRUE(used.contains(entry.path())) << entry.path() << " is never chosen";
        }
    }
}

namespace {
struct CLayout {
    const char* file;
    int shift; ///< rows by which the figure sheets stand lower than in the first form
    bool oldIntroduction;
};

// Without it the tests' names would hold the bytes of a pointer.
void PrintTo(const CLayout& layout, std::ostream* out) {
    *out << layout.file;
}

class TemplateLayout : public testing::TestWithParam<CLayout> {
protected:
    void SetUp() override { m_file = std::make_unique<CXlsFile>(g_folder / GetParam().file); }
    std::unique_ptr<CXlsFile> m_file;
};

bool StartsWith(const std::string& text, const std::string& start) {
    return text.rfind(start, 0) == 0;
}
} // namespace

TEST_P(TemplateLayout, FiguresMeetTheirCaptionsAndFreeCells) {
    const std::string materials[] = {"PET - měkké",
                                     "PE - měkké",
                                     "PVC - měkké",
                                     "PP - měkké",
                                     "PS - měkké",
                                     "plasty jiné - měkké",
                                     "PET - pevné duté",
                                     "PE - pevné duté",
                                     "PVC - pevné duté",
                                     "PP - pevné duté",
                                     "PS - pevné duté",
                                     "plasty jiné - pevné duté",
                                     "PET - pevné duté nad 5l",
                                     "PE - pevné duté nad 5l",
                                     "PVC - pevné duté nad 5l",
                                     "PP - pevné duté nad 5l",
                                     "PS - pevné duté nad 5l",
                                     "plasty jiné - pevné duté nad 5l",
                                     "vlnitá lepenka",
                                     "papír",
                                     "sklo",
                                     "kovy - železo FE",
                                     "kovy - hliník AL",
                                     "kovy nad 5l - železo FE",
                                     "kovy nad 5l- hliník AL",
                                     "nápojové kartony",
                                     "kombinované materiály",
                                     "dřevo",
                                     "textil",
                                     "jiný materiál"};
    const struct {
        char column;
        const char* caption;
    } types[] = {{'C', "Prodejní obal"}, {'F', "Skupinový obal"}, {'I', "Přepravní obal"}, {'L', "Průmyslový obal"}};
    const std::vector<std::string> origins{"vyrobený", "dovezený", "nakoupený"};
    const std::vector<std::string> fates{"recyklováno", "energeticky využito", "odstraněno"};
    const int shift = GetParam().shift;

    for (const std::string sheet : {"1-1", "1-2", "1-3", "1-4", "2-1", "2-2", "2-3", "2-4", "3-1"}) {
        SCOPED_TRACE(sheet);
        for (const auto& type : types) {
            if (type.column == 'L' && shift == 0)
                break;
            EXPECT_EQ(m_file->Text(sheet, type.column + std::to_string(3 + shift)), type.caption);
            for (char i = 0; i < 3; ++i) {
                const auto& way = (sheet == "3-1" ? fates : origins)[static_cast<std::size_t>(i)];
                const std::string address = static_cast<char>(type.column + i) + std::to_string(4 + shift);
                EXPECT_TRUE(StartsWith(m_file->Text(sheet, address), way)) << address;
            }
        }
        int row = 5 + shift;
        for (const std::string& material : materials) {
            if (material == "nápojové kartony" && sheet.front() != '1')
                continue;
            EXPECT_EQ(m_file->Text(sheet, "B" + std::to_string(row)), material);
            const bool salesOnly = material.find("nad 5l") != std::string::npos || material == "nápojové kartony";
            for (char column = 'C'; column <= (shift ? 'N' : 'K'); ++column) {
                const bool sales = column < 'F', industrial = column >= 'L';
                const bool placed = sales || (!salesOnly && (material != "sklo" || industrial));
                const std::string address = column + std::to_string(row);
                EXPECT_EQ(m_file->Text(sheet, address), placed ? "" : g_notApplicable) << address;
            }
            ++row;
        }
        EXPECT_EQ(m_file->Text(sheet, "A" + std::to_string(row)), "Celkem");
    }
}

TEST_P(TemplateLayout, PalletsStandOneRowHigherInTheNewForm) {
    const int shift = GetParam().shift;
    const struct {
        int row;
        const char* caption;
        const char* reusable;
        const char* oneWay;
    } rows[] = {{6, "paleta EUR (ČSN 269110)", "", "×"},
                {7, "paleta prostá (ČSN 269111)", "", ""},
                {8, "nápojové kartony", "×", ""}};
    EXPECT_TRUE(StartsWith(m_file->Text("4-1", "E" + std::to_string(5 - shift)), "Opakovaně"));
    EXPECT_TRUE(StartsWith(m_file->Text("4-1", "H" + std::to_string(5 - shift)), "Jednorázové"));
    for (const auto& row : rows) {
        const std::string number = std::to_string(row.row - shift);
        EXPECT_EQ(m_file->Text("4-1", "B" + number), row.caption);
        EXPECT_EQ(m_file->Text("4-1", "E" + number), row.reusable);
        EXPECT_EQ(m_file->Text("4-1", "H" + number), row.oneWay);
    }
}

TEST_P(TemplateLayout, CompanyDataMeetTheirCaptions) {
    const struct {
        const char* caption;
        const char* text;
        const char* input;
        bool both;
        bool old;
    } fields[] = {
        {"A4", "Výkaz za", "", true, false},
        {"A7", "Společnost:", "D7", true, false},
        {"A9", "Sídlo:", "D9", true, false},
        {"A11", "IČ:", "C11", false, true},
        {"E11", "DIČ:", "F11", false, true},
        {"D13", "EKO-KOM ID:", "F13", false, true},
        {"A17", "Kontaktní osoba:", "D17", false, true},
        {"A18", "Tel.:", "C18", false, true},
        {"A19", "Fax:", "C19", false, true},
        {"A20", "e-mail:", "C20", false, true},
        {"A11", "E-mail pro příjem faktur:", "E11", false, false},
        {"A13", "IČ:", "C13", false, false},
        {"E13", "DIČ:", "F13", false, false},
        {"D15", "EKO-KOM ID:", "F15", false, false},
        {"A19", "Kontaktní osoba:", "D19", false, false},
        {"A20", "Tel.:", "C20", false, false},
        {"A21", "Fax:", "C21", false, false},
        {"A22", "e-mail:", "C22", false, false},
    };
    EXPECT_EQ(m_file->Text("Úvod", "D5"), "řádný");
    for (const auto& field : fields) {
        if (!field.both && field.old != GetParam().oldIntroduction)
            continue;
        EXPECT_EQ(m_file->Text("Úvod", field.caption), field.text);
        if (*field.input) {
            EXPECT_EQ(m_file->Cell("Úvod", field.input).kind, EKind::Empty) << field.input;
        }
    }
}

// Both sides of each version at which the form changed.
INSTANTIATE_TEST_SUITE_P(Forms, TemplateLayout,
                         testing::Values(CLayout{"vykaz2003.tpl", 0, true}, CLayout{"vykaz2004_1.tpl", 0, true},
                                         CLayout{"vykaz2004.tpl", 1, true}, CLayout{"vykaz2005.tpl", 1, true},
                                         CLayout{"vykaz2006_1.tpl", 1, false}, CLayout{"vykaz2009_3.tpl", 1, false},
                                         CLayout{"vykaz2012_4.tpl", 1, false}),
                         [](const auto& info) {
                             return std::string(info.param.file, 5, 4) + "_" + std::to_string(info.index);
                         });
