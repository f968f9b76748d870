#include "core/import/money/MoneyInstallation.h"
#include "core/import/money/MoneyTable.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QDir>

namespace {

struct MoneyInstallation : testing::Test {
    MoneyFolder money;
    ScriptedMessages messages;

    /// "agenda/year" of each row.
    std::vector<std::string> List() {
        CMoneyInstallation installation(CDriveMap::FromEnvironment());
        installation.List();
        std::vector<std::string> rows;
        for (const MoneyYear& year : installation.Years())
            rows.push_back((year.agendaName + u'/' + year.yearName).toStdString());
        return rows;
    }
    void ExpectNoInstallation() {
        messages.Expect("Na tomto počítači pravděpodobně nejsou nainstalovány MoneyS3.", Message::Icon::None);
    }
};

using Rows = std::vector<std::string>;

TEST_F(MoneyInstallation, IsSoughtOnTheDrivesFromCToZ) {
    ExpectNoInstallation();
    EXPECT_EQ(Rows(), List());
    money.AddAgenda("e:/Data/Agenda.001", "Na E");
    money.AddYear("e:/Data/Agenda.001/Rok.2012", "2012");
    money.AddAgenda("d:/Data/Agenda.001", "Na D");
    money.AddYear("d:/Data/Agenda.001/Rok.2012", "2012");
    money.Install('a', "E:\\Data");
    ExpectNoInstallation();
    EXPECT_EQ(Rows(), List());
    money.Install('z', "D:\\Data");
    EXPECT_EQ(Rows{"Na D/2012"}, List());
    money.Install('d', "E:\\Data");
    EXPECT_EQ(Rows{"Na E/2012"}, List());
    QDir().mkpath(money.Path("c:/Program Files/CIGLER SOFTWARE/Common Files/Setup.ini"));
    EXPECT_EQ(Rows{"Na E/2012"}, List());
}

TEST_F(MoneyInstallation, FindsItsFoldersInAnyCaseAndSpelling) {
    money.AddAgenda("D:/DATA/aGENDA.001", "Firma");
    money.AddYear("D:/DATA/aGENDA.001/ROK.2012", "2012");
    money.Write("c:/PROGRAM FILES/Cigler Software/COMMON FILES/SETUP.INI",
                "[instparams]\r\nLOCALPATH=\"c:\\money\"\r\n");
    for (const char* dataRoot : {"d:\\data", "D:\\Data\\", "d:/Data\\\\ "}) {
        money.Write("c:/Money/MONS3.INI", QStringLiteral("[directory]\r\ndataroot=%1\r\n").arg(dataRoot));
        EXPECT_EQ(Rows{"Firma/2012"}, List()) << dataRoot;
    }
    for (const char* dataRoot : {"", "\\", "\\\\server\\Data", "Q:\\Data", "D:\\Other"}) {
        money.Write("c:/Money/MONS3.INI", QStringLiteral("[directory]\r\ndataroot=%1\r\n").arg(dataRoot));
        EXPECT_EQ(Rows(), List()) << dataRoot;
    }
}

TEST_F(MoneyInstallation, ListsYearsInOrder) {
    money.Install('c', "C:\\Data");
    const char* agendas[][2] = {{"Agenda.001", "Žito"},
                                {"Agenda.002", "alfa"},
                                {"Agenda.003", "ALFA"},
                                {"Agenda.004", "Beta"},
                                {"Agenda", "beta"}};
    for (const auto& [folder, name] : agendas)
        money.AddAgenda(QStringLiteral("c:/Data/") + folder, QString::fromUtf8(name));
    money.AddYear("c:/Data/Agenda.001/Rok.2012", "2012");
    money.AddYear("c:/Data/Agenda.002/Rok.2013", "2013");
    money.AddYear("c:/Data/Agenda.002/Rok.2011", "2011");
    money.AddYear("c:/Data/Agenda.003/Rok.2012", "2012");
    money.AddYear("c:/Data/Agenda.004/Rok.2012", "2012");
    money.AddYear("c:/Data/Agenda/Rok", "2012");
    // No agendas and no years: a name that only begins alike, a file, an agenda without a name.
    money.AddAgenda("c:/Data/AgendaStara", "x");
    money.Write("c:/Data/Agenda.txt", "x");
    money.AddYear("c:/Data/Agenda.009/Rok.2012", "x");
    money.AddYear("c:/Data/Agenda.001/Rokle.1", "x");
    money.Write("c:/Data/Agenda.001/Rok.txt", "x");
    // A year that cannot be named is listed, and one whose file has no name too.
    money.Write("c:/Data/Agenda.001/Rok.2010/other.txt", "");
    money.Write("c:/Data/Agenda.001/Rok.2009/Rok.ini", "[Global]\r\n");
    EXPECT_EQ((Rows{"alfa/2011", "ALFA/2012", "alfa/2013", "beta/2012", "Beta/2012", "Žito/2012", "Žito/<není>",
                    "Žito/<není>"}),
              List());
}

DbfBytes Settings(const QString& section, const QString& key, const QString& value) {
    return {
        {{"Section1", 'C', 30}, {"Variable", 'C', 30}, {"Value", 'C', 60}},
        {DbfRow({"Global", "Zkratka", "x"}), DbfRow({section, key, value}), DbfRow({"Údaje o firmě", "Název", "y"})},
        {}};
}

TEST_F(MoneyInstallation, ReadsNamesFromTablesWhereThereIsNoIniFile) {
    money.Install('c', "C:\\Data");
    // The last field is null where the year is not listed.
    const std::tuple<const char*, DbfBytes, const char*> cases[] = {
        {"Agenda.1", Settings("Údaje o firme", "Název", "Žlutý kůň"), "Žlutý kůň/2012"},
        {"Agenda.2", Settings("Údaje o firme", "Jméno", "x"), "<není>/2012"},
        {"Agenda.3", {{{"Section1", 'C', 30}, {"Value", 'C', 60}}, {}, {}}, nullptr},
    };
    for (const auto& [chosen, table, row] : cases) {
        QDir(money.Path("c:/Data")).removeRecursively();
        const QString agenda = QStringLiteral("c:/Data/") + chosen;
        money.WriteTable(agenda + "/AGENDA.DAT", table);
        money.WriteTable(agenda + "/Rok.2012/Rok.dat", Settings("Global", "Účetní rok", "2012"));
        EXPECT_EQ(row != nullptr ? Rows{row} : Rows(), List()) << chosen;
        money.Write(agenda + "/AGENDA.DAT", "no table");
        EXPECT_EQ(Rows(), List()) << chosen;
    }
}

TEST_F(MoneyInstallation, TakesAFolderChosenByHand) {
    money.Install('c', "C:\\Data");
    money.AddAgenda("c:/Data/Agenda.001", "Beta");
    money.AddYear("c:/Data/Agenda.001/Rok.2012", "2012");
    money.AddAgenda("c:/Elsewhere/Stará", "Alfa");
    money.AddYear("c:/Elsewhere/Stará/2011", "2011");
    money.AddYear("c:/NoAgenda/2011", "2011");
    money.Write("c:/NoTable/Rok.dat", "no table");
    QDir().mkpath(money.Path("c:/Data/Agenda.001/2013/Rok.ini"));

    CMoneyInstallation installation(CDriveMap::FromEnvironment());
    installation.List();
    EXPECT_EQ(0u, installation.ChooseFolder(money.Path("c:/Data/Agenda.001/Rok.2012")));
    EXPECT_EQ(0u, installation.ChooseFolder(money.Path("c:/Data/Agenda.001/Rok.2012// ")));
    EXPECT_EQ(1u, installation.Years().size());
    // A new one comes last, whatever its name.
    EXPECT_EQ(1u, installation.ChooseFolder(money.Path("c:/Elsewhere/Stará/2011")));
    EXPECT_EQ(1u, installation.ChooseFolder(money.Path("c:/Elsewhere/Stará/2011/")));
    ASSERT_EQ(2u, installation.Years().size());
    EXPECT_EQ("Alfa", installation.Years()[1].agendaName.toStdString());
    EXPECT_EQ(money.Path("c:/Elsewhere/Stará/"), installation.Years()[1].agendaFolder);
    EXPECT_EQ(money.Path("c:/Elsewhere/Stará/2011/"), installation.Years()[1].yearFolder);

    const std::tuple<const char*, QString, Message::Icon> refused[] = {
        {"c:/Data", "Adresář \"%1c:/Data/\" neobsahuje informace o účetním roce Money!", Message::Icon::Warning},
        {"c:/Data/Agenda.001/2013", "Adresář \"%1c:/Data/Agenda.001/2013/\" neobsahuje informace o účetním roce Money!",
         Message::Icon::Warning},
        {"c:/missing", "Adresář \"%1c:/missing/\" neobsahuje informace o účetním roce Money!", Message::Icon::Warning},
        {"c:/NoAgenda/2011/", "Adresář \"%1c:/NoAgenda/\" neobsahuje informace o agendě Money!",
         Message::Icon::Warning},
        {"c:/NoTable", "Nemohu otevřít tabulku Money \"%1c:/NoTable/Rok.dat\"", Message::Icon::Error},
    };
    for (const auto& [folder, message, icon] : refused) {
        messages.Expect(message.arg(money.Path({})), icon);
        EXPECT_FALSE(installation.ChooseFolder(money.Path(QString::fromUtf8(folder)))) << folder;
    }
    EXPECT_EQ(2u, installation.Years().size());
}

TEST_F(MoneyInstallation, FindsTheYearOfAnEarlierRunWithoutAWord) {
    money.Install('c', "C:\\Data");
    money.AddAgenda("c:/Data/Agenda.001", "Beta");
    money.AddYear("c:/Data/Agenda.001/Rok.2011", "2011");
    QDir().mkpath(money.Path("c:/Data/Agenda.001/Rok.2012"));
    money.AddAgenda("c:/Elsewhere/Agenda.1", "Alfa");
    money.AddYear("c:/Elsewhere/Agenda.1/2010", "2010");
    // row: "-" for none
    const std::tuple<const char*, const char*, std::size_t> cases[] = {
        {"c:/Data/Agenda.001/Rok.2011/", "0", 2}, {"c:/Data/Agenda.001/Rok.2012/", "1", 2},
        {"c:/Elsewhere/Agenda.1/2010/", "2", 3},  {"c:/Elsewhere/Agenda.1/2011/", "-", 2},
        {"c:/Data/Agenda.002/Rok.2011/", "-", 2}, {"c:/Elsewhere/", "-", 2},
    };
    for (const auto& [folder, row, years] : cases) {
        CMoneyInstallation installation(CDriveMap::FromEnvironment());
        installation.List();
        const std::optional<std::size_t> found = installation.FindAgain(money.Path(QString::fromUtf8(folder)));
        EXPECT_EQ(row, found ? std::to_string(*found) : "-") << folder;
        EXPECT_EQ(years, installation.Years().size()) << folder;
        EXPECT_FALSE(installation.FindAgain({}));
    }
}

TEST_F(MoneyInstallation, TakesTheYearFolderOfACommand) {
    money.AddAgenda("c:/Data/Agenda.001", "Firma");
    money.AddYear("c:/Data/Agenda.001/Rok.2012", "2012");
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(money.Path("c:/Data/Agenda.001")));
    for (const QString& folder :
         {QStringLiteral("C:\\data\\AGENDA.001\\Rok.2012"), QStringLiteral("c:/Data/Agenda.001/Rok.2012/"),
          QStringLiteral("Rok.2012"), QStringLiteral("../Agenda.001/./Rok.2012/"),
          money.Path("c:/Data/Agenda.001/Rok.2012")}) {
        const std::optional<MoneyYear> year = MoneyYearOfFolder(folder);
        ASSERT_TRUE(year) << folder.toStdString();
        EXPECT_EQ(money.Path("c:/Data/Agenda.001/"), year->agendaFolder) << folder.toStdString();
    }
    QDir::setCurrent(before);

    // A year without a name is taken as the list shows it; nothing else is.
    QDir().mkpath(money.Path("c:/Data/Agenda.001/Rok.2013"));
    QDir().mkpath(money.Path("c:/Data/Agenda.001/2013"));
    const std::optional<MoneyYear> unnamed = MoneyYearOfFolder("C:\\Data\\Agenda.001\\rok.2013");
    ASSERT_TRUE(unnamed);
    EXPECT_EQ("Firma|<není>", (unnamed->agendaName + u'|' + unnamed->yearName).toStdString());
    for (const char* folder : {"2013", "Rok.2014"}) {
        messages.Expect(QString("Adresář \"%1c:/Data/Agenda.001/%2/\" neobsahuje informace o účetním roce Money!")
                            .arg(money.Path({}), QLatin1String(folder)),
                        Message::Icon::Warning);
        EXPECT_FALSE(MoneyYearOfFolder(money.Path("c:/Data/Agenda.001/") + QLatin1String(folder)));
    }
}

} // namespace
