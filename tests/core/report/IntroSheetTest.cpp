#include "core/report/IntroSheet.h"

#include "core/base/AppDir.h"
#include "core/report/Figures.h"
#include "core/report/Spreadsheet.h"
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

TEST(FormVersion, SaysItsPeriods) {
    const std::string later = "2010:234 2011:1234 2012:3";
    const std::tuple<const char*, std::int64_t, std::string> cases[] = {
        {"1.3", 10300, ""},
        {"1.4", 10400, "2003:1234"},
        {"1.5", 10500, "2004:1"},
        {"2.0", 20000, "2004:234"},
        {"2.1", 20100, "2005:1234"},
        {"2.2", 20200, "2006:1"},
        {"2.3", 20300, "2006:2"},
        {"2.4", 20400, "2006:1234 2007:1234 2008:1234 2009:1234 2010:1234 2011:1234 2012:1234 2013:1234 2014:1234"},
        {"2.5", 20500, "2007:1234"},
        {"2.6", 20600, "2008:12"},
        {"2.7", 20700, "2008:1234"},
        {"2.8", 20800, "2009:1"},
        {"2,9", 20900, "2009:2"},
        {"2,10", 21000, "2009:34"},
        {"2.11", 21100, "2010:1"},
        {"2.12", 21200, "2010:234"},
        {"2.14", 21400, "2010:234"},
        {"2.15", 21500, "2010:234 2011:1234"},
        {"2.18", 21800, "2010:234 2011:1234"},
        {"2.19", 21900, later},
        {"3", 30000, later},
        {"2.100", 30000, later},
        {"2.", 20000, ""},
        {"2.01", 20100, ""},
        {" 2.5", 20500, ""},
        {"", 0, ""},
        {"verze 2.5", 500, ""}};
    for (const auto& [text, value, periods] : cases) {
        EXPECT_EQ(value, VersionValue(NormalVersionText(QString::fromUtf8(text))).count) << text;
        EXPECT_EQ(periods, Accepted(text)) << text;
    }
}

class RecordedSheet : public IWorksheet {
public:
    explicit RecordedSheet(const char* version) : m_version(version) {}
    void Activate() override {}
    QString GetText(const QString& range) override { return range == u"A1:A1" ? m_version : QStringLiteral("1"); }
    void SetText(const QString& range, const QString& text) override { cells << range + u'=' + text; }
    void SetInteger(const QString& range, std::int32_t value) override {
        cells << range + u'=' + QString::number(value) + " (number)";
    }
    void SetCurrency(const QString&, Currency) override { FAIL(); }

    QStringList cells;

private:
    QString m_version;
};

TEST(Introduction, HasTheCellsOfItsVersion) {
    const std::string old = "D7:D7=nazev|D9:D9=sidlo|C11:C11=ico|F11:F11=dic|F13:F13=id|D17:D17=osoba|C18:C18=tel|"
                            "C19:C19=fax|C20:C20=mail";
    const std::string current = "D7:D7=nazev|D9:D9=sidlo|E11:E11=faktury|C13:C13=ico|F13:F13=dic|F15:F15=id|"
                                "D19:D19=osoba|C20:C20=tel|C21:C21=fax|C22:C22=mail";
    const std::tuple<const char*, Period, bool, std::string> cases[] = {
        {"2.1", {2005, 4}, false, "D4:D4=4 (number)|D5:D5=opravný|" + old},
        {"2,2", {2006, 1}, true, "D4:D4=1 (number)|" + current},
        {"2,10", {2009, 3}, false, "D4:D4=3 (number)|D5:D5=opravný|" + current},
        {"2.11", {2010, 1}, true, current},
    };
    for (const auto& [version, period, regular, cells] : cases) {
        const ReportRequest request{
            period, regular, {"osoba", "dic", "ico", "fax", "tel", "nazev", "mail", "sidlo", "id", "faktury"}};
        RecordedSheet sheet(version);
        ASSERT_TRUE(ReadIntroSheet(sheet, request.period));
        WriteIntroSheet(sheet, request);
        EXPECT_EQ(cells, sheet.cells.join(u'|').toStdString()) << version;
    }
}

TEST(CompanyData, SurvivesInItsSectionAndIsCut) {
    ProgramFolder folder;
    EXPECT_EQ(QString(), ReadCompanyData().name);
    const CompanyData company{"osoba", "dic", "ico", "fax", "tel", QString(1200, u'ě'), "mail", "sídlo", "id", ""};
    EXPECT_FALSE(WriteCompanyData(company));
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

TEST(CompanyData, IsWrittenWholeOrNotAtAll) {
    const ProgramFolder folder;
    const CompanyData company{"osoba", "dic", "ico", "fax", "tel", QString(1200, 'x'), {}, {}, {}, {}};
    const SmallDisk disk(1000);
    EXPECT_EQ(std::errc::file_too_large, WriteCompanyData(company));
    EXPECT_FALSE(QFile::exists(SettingsPath()));
}
