#include "core/import/wak/WakPassword.h"
#include "core/base/AppDir.h"
#include "core/base/Profile.h"
#include "core/import/wak/WakOptions.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

TEST(WakPassword, IsHiddenAndComesBack) {
    const std::tuple<QString, QString, QString> cases[] = {
        {"", "", ""},
        // 'A' is 41; its halves swapped 14; with the key's 5A it is 4E, the low half of the first number.
        {"A", "134EE2C79B08F14420 6D3EB807915FCCA972841D", "A"},
        {"heslo", "45DC24F09BFEF14420 6D3EB807915FCCA972841D", "heslo"},
        {"ž\"};' ě", "", "ž\"};' ě"},
        {"12345678901234567890ABCDE", "", "12345678901234567890"},
        {"α", "", "?"},
    };
    for (const auto& [password, scrambled, back] : cases) {
        const QString stored = ScrambleWakPassword(password);
        if (!scrambled.isEmpty() || password.isEmpty()) {
            EXPECT_EQ(QString(scrambled).remove(u' '), stored) << password.toStdString();
        } else {
            EXPECT_EQ(40, stored.size());
        }
        EXPECT_EQ(back, UnscrambleWakPassword(stored)) << password.toStdString();
        EXPECT_EQ(back, UnscrambleWakPassword(stored.toLower())) << password.toStdString();
    }
}

TEST(WakPassword, AValueOfAnotherFormIsNoPassword) {
    const QString good = ScrambleWakPassword("heslo");
    for (const QString& bad : {good.left(39), good + "0", good.left(39) + "G", good.left(36) + " +12",
                               good.left(36) + "-001", good.left(39) + "١", QString("heslo")})
        EXPECT_EQ(QString(), UnscrambleWakPassword(bad)) << bad.toStdString();
}

TEST(WakOptions, ComeBackFromTheSettingsWithThePasswordHidden) {
    const ProgramFolder folder;
    WakOptions options;
    options.Read();
    EXPECT_EQ("(local)", options.server);
    EXPECT_EQ("sa", options.user);
    EXPECT_EQ("", options.database + options.password);
    EXPECT_FALSE(options.windows);

    options.server = "10.0.0.1\\WAK";
    options.database = "Účetnictví";
    options.windows = true;
    options.user = "";
    options.password = "tajné heslo";
    options.products = false;
    ASSERT_FALSE(options.Write());
    EXPECT_EQ(-1, FileBytes(SettingsPath()).indexOf("heslo "));
    EXPECT_FALSE(FileBytes(SettingsPath()).contains("tajn"));
    WakOptions again;
    again.Read();
    EXPECT_EQ("10.0.0.1\\WAK|Účetnictví||tajné heslo",
              again.server + "|" + again.database + "|" + again.user + "|" + again.password);
    EXPECT_TRUE(again.windows);
    EXPECT_FALSE(again.products);
    EXPECT_TRUE(again.documents);
}

TEST(WakOptions, APasswordThatIsNotToBeStoredGoes) {
    const ProgramFolder folder;
    WakOptions options;
    options.password = "heslo";
    ASSERT_FALSE(options.Write());
    options.storePassword = false;
    ASSERT_FALSE(options.Write());
    WakOptions again;
    again.Read();
    EXPECT_EQ("", again.password);
    EXPECT_FALSE(again.storePassword);
    EXPECT_TRUE(FileBytes(SettingsPath()).contains("Heslo=\r\n"));
}

TEST(WakOptions, WarnsOfAPasswordThatWillNotArrive) {
    const QString quote = "Uvozovky v hesle zapište dvakrát.";
    const QString cut = "Uloží se jen prvních 20 znaků hesla.";
    const QString twenty(20, u'x');
    const std::tuple<QString, bool, bool, QString> cases[] = {
        {twenty, true, false, ""},
        {twenty + "x", true, false, cut},
        {twenty + "x", false, false, ""},
        {"a\"b", false, false, quote},
        {twenty + "\"", true, false, quote + "\n" + cut},
        {twenty + "\"", true, true, ""},
    };
    for (const auto& [password, stored, windows, note] : cases) {
        WakOptions options;
        options.password = password;
        options.storePassword = stored;
        options.windows = windows;
        EXPECT_EQ(note, WakPasswordNote(options)) << password.toStdString();
    }
}

TEST(WakOptions, TheRangeIsThePreviousQuarter) {
    const WakDateRange winter = WakDateRange::PreviousQuarter(DateTime::FromDay(2024, 2, 15, 8));
    EXPECT_EQ("2023-10-01 00:00:00", winter.from.Stored());
    EXPECT_EQ("2023-12-31 23:59:59", winter.to.Stored());
    const WakDateRange spring = WakDateRange::PreviousQuarter(DateTime::FromDay(2024, 4, 1));
    EXPECT_EQ("2024-01-01 00:00:00", spring.from.Stored());
    EXPECT_EQ("2024-03-31 23:59:59", spring.to.Stored());
}

TEST(WakOptions, TheRangeIsOfWholeDays) {
    const DateTime morning = DateTime::FromDay(2024, 3, 31, 8);
    const DateTime evening = DateTime::FromDay(2024, 3, 31, 20);
    ImportOptions options;
    WakDateRange range{evening, morning};
    EXPECT_FALSE(CheckWakParameters(options, range));
    EXPECT_EQ("2024-03-31 00:00:00", range.from.Stored());
    EXPECT_EQ("2024-03-31 23:59:59", range.to.Stored());
    options.products = options.documents = false;
    EXPECT_EQ("Není vybrán import produktů ani dokladů!", CheckWakParameters(options, range).value().toStdString());
}
