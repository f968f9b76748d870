#include "report/IntroSheet.h"

#include "report/Figures.h"
#include "report/Spreadsheet.h"
#include "store/AppDir.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

namespace {

/// "2008:12 2009:1234": the accepted quarters of 2002 to 2014, by a template made for the third quarter.
std::string Accepted(const char* version) {
    std::string text;
    for (int year = 2002; year <= 2014; ++year) {
        std::string quarters;
        for (int quarter = 1; quarter <= 4; ++quarter)
            if (FitsPeriod(NormalVersionText(QString::fromUtf8(version)), {year, quarter}, 3))
                quarters += std::to_string(quarter);
        if (!quarters.empty())
            text += (text.empty() ? "" : " ") + std::to_string(year) + ":" + quarters;
    }
    return text;
}

struct VersionCase {
    const char* text;
    std::int64_t value;
    const char* periods;
};

class FormVersion : public testing::TestWithParam<VersionCase> {};

TEST_P(FormVersion, SaysItsPeriods) {
    EXPECT_EQ(GetParam().value, VersionValue(NormalVersionText(QString::fromUtf8(GetParam().text))).count);
    EXPECT_EQ(GetParam().periods, Accepted(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Report, FormVersion,
    testing::Values(
        VersionCase{"1.3", 10300, ""}, VersionCase{"1.4", 10400, "2003:1234"}, VersionCase{"1.5", 10500, "2004:1"},
        VersionCase{"2.0", 20000, "2004:234"}, VersionCase{"2.1", 20100, "2005:1234"},
        VersionCase{"2.2", 20200, "2006:1"}, VersionCase{"2.3", 20300, "2006:2"},
        VersionCase{"2.4", 20400,
                    "2006:1234 2007:1234 2008:1234 2009:1234 2010:1234 2011:1234 2012:1234 2013:1234 "
                    "2014:1234"},
        VersionCase{"2.5", 20500, "2007:1234"}, VersionCase{"2.6", 20600, "2008:12"},
        VersionCase{"2.7", 20700, "2008:1234"}, VersionCase{"2.8", 20800, "2009:1"},
        VersionCase{"2,9", 20900, "2009:2"}, VersionCase{"2,10", 21000, "2009:34"},
        VersionCase{"2.11", 21100, "2010:1"}, VersionCase{"2.12", 21200, "2010:234"},
        VersionCase{"2.14", 21400, "2010:234"}, VersionCase{"2.15", 21500, "2010:234 2011:1234"},
        VersionCase{"2.18", 21800, "2010:234 2011:1234"}, VersionCase{"2.19", 21900, "2010:234 2011:1234 2012:3"},
        VersionCase{"3", 30000, "2010:234 2011:1234 2012:3"}, VersionCase{"2.100", 30000, "2010:234 2011:1234 2012:3"},
        VersionCase{"3.", 30000, "2010:234 2011:1234 2012:3"}, VersionCase{"2", 20000, ""},
        VersionCase{"2.", 20000, ""}, VersionCase{"2.01", 20100, ""}, VersionCase{" 2.5", 20500, ""},
        VersionCase{"", 0, ""}, VersionCase{".", 0, ""}, VersionCase{"verze 2.5", 500, ""}));

class RecordedSheet : public IWorksheet {
public:
    explicit RecordedSheet(const char* version) : m_version(version) {}
    void Activate() override {}
    QString GetText(const QString& range) override { return range == u"A1:A1" ? m_version : QStringLiteral("1"); }
    void SetText(const QString& range, const QString& text) override { cells << range + u'=' + text; }
    void SetInteger(const QString& range, std::int32_t value) override {
        cells << range + u'=' + QString::number(value) + QStringLiteral(" (number)");
    }
    void SetCurrency(const QString&, Currency) override { FAIL(); }

    QStringList cells;

private:
    QString m_version;
};

struct IntroCase {
    const char* version;
    Period period;
    bool regular;
    const char* cells;
};

class Introduction : public testing::TestWithParam<IntroCase> {};

TEST_P(Introduction, HasTheCellsOfItsVersion) {
    const ReportRequest request{GetParam().period,
                                GetParam().regular,
                                {"osoba", "dic", "ico", "fax", "tel", "nazev", "mail", "sidlo", "id", "faktury"}};
    RecordedSheet sheet(GetParam().version);
    ASSERT_TRUE(ReadIntroSheet(sheet, request.period));
    WriteIntroSheet(sheet, request);
    EXPECT_EQ(GetParam().cells, sheet.cells.join(u'|').toStdString());
}

#define OLD_CELLS                                                                                                      \
    "D7:D7=nazev|D9:D9=sidlo|C11:C11=ico|F11:F11=dic|F13:F13=id|D17:D17=osoba|C18:C18=tel|C19:C19=fax|C20:C20=mail"
#define NEW_CELLS                                                                                                      \
    "D7:D7=nazev|D9:D9=sidlo|E11:E11=faktury|C13:C13=ico|F13:F13=dic|F15:F15=id|D19:D19=osoba|C20:C20=tel|"            \
    "C21:C21=fax|C22:C22=mail"

INSTANTIATE_TEST_SUITE_P(
    Report, Introduction,
    testing::Values(IntroCase{"1.4", {2003, 2}, true, "D4:D4=2 (number)|" OLD_CELLS},
                    IntroCase{"2.1", {2005, 4}, false, "D4:D4=4 (number)|D5:D5=opravný|" OLD_CELLS},
                    IntroCase{"2,2", {2006, 1}, true, "D4:D4=1 (number)|" NEW_CELLS},
                    IntroCase{"2,10", {2009, 3}, false, "D4:D4=3 (number)|D5:D5=opravný|" NEW_CELLS},
                    IntroCase{"2.11", {2010, 1}, true, NEW_CELLS},
                    IntroCase{"2.19", {2012, 1}, false, "D5:D5=opravný|" NEW_CELLS}));

TEST(CompanyData, SurvivesInItsSectionAndIsCut) {
    ProgramFolder folder;
    EXPECT_EQ(QString(), ReadCompanyData().name);
    const CompanyData company{"osoba", "dic", "ico", "fax", "tel", QString(1200, u'ě'), "mail", "sídlo", "id", ""};
    EXPECT_TRUE(WriteCompanyData(company));
    const QByteArray cut(1200, '\xEC');
    EXPECT_EQ("[Spolecnost]\nKontaktniOsoba=osoba\nDIC=dic\nICO=ico\nFax=fax\nTel=tel\nNazev=" + cut +
                  "\nMail=mail\nSidlo=s\xED"
                  "dlo\nEKOKOM_ID=id\nMailInv=\n",
              FileBytes(SettingsPath()).replace("\r\n", "\n"));
    const CompanyData read = ReadCompanyData();
    EXPECT_EQ(1000, read.name.size());
    EXPECT_EQ(QStringLiteral("osoba|dic|ico|fax|tel|mail|sídlo|id|"),
              QStringList({read.contactPerson, read.taxNumber, read.companyNumber, read.fax, read.telephone, read.mail,
                           read.office, read.schemeId, read.invoiceMail})
                  .join(u'|'));
}

} // namespace
