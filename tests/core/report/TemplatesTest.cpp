#include "core/report/IntroSheet.h"
#include "core/report/TemplateFile.h"
#include "tests/core/report/SecondWay.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/XlsFile.h"

#include <gtest/gtest.h>

#include <QDir>

#include <set>

// The templates as they were built, read without the office: each quarter finds one that its version accepts, and the
// figures meet the captions of their codes.

namespace fs = std::filesystem;
using EKind = CXlsFile::CCell::EKind;

static const fs::path g_folder = fs::path(KUVEL_BIN_DIR) / "templates";

TEST(Templates, EveryQuarterFindsATemplateThatIsAcceptedAndNamesIt) {
    const std::vector<std::string> sheets{"Úvod", "1-1", "1-2", "1-3", "1-4", "2-1", "2-2", "2-3", "2-4", "3-1", "4-1"};
    ProgramFolder folder;
    folder.AddTemplates();
    std::set<QString> used;
    for (int year = 2003; year <= 2012; ++year)
        for (int quarter = 1; quarter <= 4; ++quarter) {
            SCOPED_TRACE(std::to_string(year) + "/" + std::to_string(quarter));
            const QString path = FindTemplate({year, quarter});
            ASSERT_FALSE(path.isEmpty());
            used.insert(path);
            const CXlsFile file(path.toStdString());
            EXPECT_EQ(file.SheetNames(), sheets);
            const auto version = file.Cell("Úvod", "A1");
            ASSERT_EQ(version.kind, EKind::Text) << "2.10 as a number would be 2.1";
            const QString text = NormalVersionText(QString::fromStdString(version.text));
            const auto templateQuarter = file.Cell("Úvod", "D4");
            if (VersionValue(text).count < 21100) {
                EXPECT_EQ(templateQuarter.kind, EKind::Empty) << "the report writes the quarter";
            } else {
                // Nobody writes D4, so only a template of this very quarter makes a report that says the right one.
                EXPECT_EQ(templateQuarter.kind, EKind::Number);
                EXPECT_EQ(templateQuarter.number, quarter);
            }
            EXPECT_TRUE(FitsPeriod(text, {year, quarter}, static_cast<int>(templateQuarter.number))) << version.text;
            EXPECT_EQ(file.Text("Úvod", "E4"), "čtvrtletí " + std::to_string(year));
        }
    for (const QString& name : QDir(folder.Path()).entryList({"*.tpl"}))
        EXPECT_TRUE(used.contains(folder.Path() + name)) << name.toStdString() << " is never chosen";
}

/// Both sides of each version at which the form changed.
static const struct Form {
    const char* file;
    int shift; // rows by which the figure sheets stand lower than in the first form
    bool oldIntroduction;
} g_forms[] = {
    {"vykaz2003.tpl", 0, true},    {"vykaz2004_1.tpl", 0, true},  {"vykaz2004.tpl", 1, true},
    {"vykaz2005.tpl", 1, true},    {"vykaz2006_1.tpl", 1, false}, {"vykaz2009_3.tpl", 1, false},
    {"vykaz2012_4.tpl", 1, false},
};

static void ExpectFigureSheet(const CXlsFile& file, const std::string& sheet, int shift) {
    const bool reusable = sheet[0] != '1';
    const bool isNew = shift != 0;
    const auto text = [&](char column, int row) {
        return QString::fromStdString(file.Text(sheet, column + std::to_string(row)));
    };
    const CDataStore store; // for its code lists
    constexpr int Paper = 7;
    for (int type = 0; type <= (isNew ? Type::Industrial : Type::Sales); ++type) {
        QString caption = store.CodeListText(CodeList::CoverType, type) + " obal";
        caption[0] = caption[0].toUpper();
        EXPECT_EQ(text(FormCell(Paper, type, 2, reusable, isNew)[0], 3 + shift), caption);
        for (int third = 0; third < 3; ++third) {
            const CodeList list = sheet == "3-1" ? CodeList::DiscardType : CodeList::CoverOrigin;
            const QString word = store.CodeListText(list, third).section(u' ', 0, 0);
            const QString found = text(FormCell(Paper, type, third, reusable, isNew)[0], 4 + shift);
            EXPECT_TRUE(found.startsWith(word)) << found.toStdString();
        }
    }
    int last = 0;
    for (int material = 0; material < Material::Count; ++material) {
        if (FormRow(material, reusable) == 0)
            continue;
        const int row = FormRow(material, reusable) + shift;
        last = std::max(last, row);
        EXPECT_EQ(text('B', row), store.CodeListText(CodeList::CoverMaterial, material));
        std::set<std::string> placed;
        for (int combination = 0; combination < 12; ++combination)
            placed.insert(FormCell(material, combination / 3, combination % 3, reusable, isNew));
        for (char column = 'C'; column <= (isNew ? 'N' : 'K'); ++column)
            EXPECT_EQ(text(column, row), placed.contains(column + std::to_string(row)) ? "" : "×") << column << row;
    }
    EXPECT_EQ(text('A', last + 1), "Celkem");
}

TEST(Templates, FiguresMeetTheirCaptionsAndFreeCells) {
    for (const Form& form : g_forms) {
        const CXlsFile file(g_folder / form.file);
        for (const char* sheet : {"1-1", "1-2", "1-3", "1-4", "2-1", "2-2", "2-3", "2-4", "3-1"}) {
            SCOPED_TRACE(std::string(form.file) + " " + sheet);
            ExpectFigureSheet(file, sheet, form.shift);
        }
    }
}

TEST(Templates, PalletsStandOneRowHigherInTheNewForm) {
    const std::tuple<int, const char*, const char*, const char*> rows[] = {{6, "paleta EUR (ČSN 269110)", "", "×"},
                                                                           {7, "paleta prostá (ČSN 269111)", "", ""},
                                                                           {8, "nápojové kartony", "×", ""}};
    for (const Form& form : g_forms) {
        SCOPED_TRACE(form.file);
        const CXlsFile file(g_folder / form.file);
        const auto text = [&](char column, int row) {
            return file.Text("4-1", column + std::to_string(row - form.shift));
        };
        EXPECT_TRUE(text('E', 5).starts_with("Opakovaně"));
        EXPECT_TRUE(text('H', 5).starts_with("Jednorázové"));
        for (const auto& [row, caption, reusable, oneWay] : rows) {
            EXPECT_EQ(text('B', row), caption);
            EXPECT_EQ(text('E', row), reusable);
            EXPECT_EQ(text('H', row), oneWay);
        }
    }
}

TEST(Templates, CompanyDataMeetTheirCaptions) {
    struct Field {
        const char *caption, *text, *input;
    };
    const std::vector<Field> old = {
        {"A11", "IČ:", "C11"},         {"E11", "DIČ:", "F11"},
        {"D13", "EKO-KOM ID:", "F13"}, {"A17", "Kontaktní osoba:", "D17"},
        {"A18", "Tel.:", "C18"},       {"A19", "Fax:", "C19"},
        {"A20", "e-mail:", "C20"},
    };
    const std::vector<Field> current = {
        {"A11", "E-mail pro příjem faktur:", "E11"},
        {"A13", "IČ:", "C13"},
        {"E13", "DIČ:", "F13"},
        {"D15", "EKO-KOM ID:", "F15"},
        {"A19", "Kontaktní osoba:", "D19"},
        {"A20", "Tel.:", "C20"},
        {"A21", "Fax:", "C21"},
        {"A22", "e-mail:", "C22"},
    };
    for (const Form& form : g_forms) {
        SCOPED_TRACE(form.file);
        const CXlsFile file(g_folder / form.file);
        EXPECT_EQ(file.Text("Úvod", "A4"), "Výkaz za");
        EXPECT_EQ(file.Text("Úvod", "D5"), "řádný");
        std::vector<Field> fields = form.oldIntroduction ? old : current;
        fields.push_back({"A7", "Společnost:", "D7"});
        fields.push_back({"A9", "Sídlo:", "D9"});
        for (const Field& field : fields) {
            EXPECT_EQ(file.Text("Úvod", field.caption), field.text);
            EXPECT_EQ(file.Cell("Úvod", field.input).kind, EKind::Empty) << field.input;
        }
    }
}
