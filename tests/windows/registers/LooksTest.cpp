#include "core/rules/Propagation.h"
#include "tests/support/MoneyFolder.h"
#include "tests/windows/support/Accessibility.h"
#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/AboutDlg.h"
#include "windows/frame/BackupDlg.h"
#include "windows/frame/OptionsDlg.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/ProgressDlg.h"
#include "windows/frame/help/HelpWindow.h"
#include "windows/import/AskOverwriteDlg.h"
#include "windows/import/MoneyWizard.h"
#include "windows/import/WakWizard.h"
#include "windows/report/ReportDlg.h"
#include "windows/widgets/Look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

struct Look {
    const char* name;
    bool dark;
    int fontPercent;
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << look.name;
}

QPalette DarkPalette() {
    QPalette palette(QColor(45, 45, 45), QColor(45, 45, 45));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Link, QColor(100, 170, 255));
    return palette;
}

/// The look of the program for one test: style, palette and font size.
class WithLook {
public:
    explicit WithLook(const Look& look) : m_palette(QApplication::palette()), m_font(QApplication::font()) {
        QApplication::setStyle(new CLook);
        if (look.dark)
            QApplication::setPalette(DarkPalette());
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * look.fontPercent / 100);
        QApplication::setFont(font);
    }
    ~WithLook() {
        QApplication::setPalette(m_palette);
        QApplication::setFont(m_font);
    }

private:
    QPalette m_palette;
    QFont m_font;
};

/// Pictures for a human eye are kept where KUVEL_PICTURES says.
void Keep(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("KUVEL_PICTURES");
    if (!folder.isEmpty() && QDir().mkpath(folder))
        window.grab().save(QStringLiteral("%1/%2.png").arg(folder, name));
}

void ExpectNothingCutOff(QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<const QLabel*>(widget) || qobject_cast<const QPushButton*>(widget) ||
                             qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget) ||
                             qobject_cast<const QLineEdit*>(widget);
        const bool isInner =
            widget->parentWidget()->inherits("QAbstractSpinBox") || widget->parentWidget()->inherits("QComboBox");
        if (!hasText || !widget->isVisible() || isInner)
            continue;
        const QRect inside(QPoint(0, 0), window.size());
        const QRect place(widget->mapTo(&window, QPoint(0, 0)), widget->size());
        EXPECT_TRUE(inside.contains(place)) << widget->objectName().toStdString();
        if (qobject_cast<const QLineEdit*>(widget) == nullptr && widget->objectName() != u"browseButton") {
            EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        }
        EXPECT_GE(widget->height() + 1, widget->minimumSizeHint().height()) << widget->objectName().toStdString();
    }
}

class Looks : public testing::TestWithParam<Look> {};

TEST_P(Looks, LinesBetweenCellsAreSeenAndQuiet) {
    const WithLook look(GetParam());
    CLook style;
    QStyleOption option;
    option.palette = QApplication::palette();
    const QColor line =
        QColor::fromRgb(static_cast<QRgb>(style.styleHint(QStyle::SH_Table_GridLineColor, &option, nullptr, nullptr)));
    const int distance = std::abs(line.lightness() - option.palette.base().color().lightness());
    EXPECT_LE(12, distance);
    EXPECT_GE(30, distance);
}

TEST_P(Looks, AChoiceIsSeenWhileItIsOff) {
    SetUpDesktop();
    const WithLook look(GetParam());
    QCheckBox box;
    QRadioButton button;
    for (QAbstractButton* const choice :
         {static_cast<QAbstractButton*>(&box), static_cast<QAbstractButton*>(&button)}) {
        choice->ensurePolished();
        choice->resize(choice->sizeHint());
        const QImage image = choice->grab().toImage();
        const int window = QApplication::palette().window().color().lightness();
        int farthest = 0;
        for (int x = 0; x < image.width(); ++x)
            farthest = std::max(farthest, std::abs(image.pixelColor(x, image.height() / 2).lightness() - window));
        EXPECT_LE(40, farthest) << choice->metaObject()->className();
    }
}

TEST_P(Looks, NoDialogCutsItsTextsOff) {
    SetUpDesktop();
    const WithLook look(GetParam());
    FreshSettings settings;
    StoreFolder f;
    PropagationOptions options;
    using Make = std::function<std::unique_ptr<QWidget>()>;
    const std::pair<const char*, Make> windows[] = {
        {"about", [] { return std::make_unique<CAboutDlg>(nullptr); }},
        {"options", [&] { return std::make_unique<COptionsDlg>(options, nullptr); }},
        {"backup",
         [&] { return std::make_unique<CBackupDlg>(CBackupDlg::Mode::Backup, f.store, BackupActions{}, nullptr); }},
        {"restore",
         [&] { return std::make_unique<CBackupDlg>(CBackupDlg::Mode::Restore, f.store, BackupActions{}, nullptr); }},
        {"report", [] { return std::make_unique<CReportDlg>(nullptr); }},
        {"progress",
         [] {
             auto window = std::make_unique<CProgressDlg>(QStringLiteral("Úprava vydaných obalů"), true);
             window->SetRange(0, 200);
             window->SetPhaseText(QStringLiteral("Aktualizuji kuvel u vydaných produktů"));
             window->SetDetailText(QStringLiteral("450001 z 1000000"));
             window->SetPosition(90);
             return window;
         }},
        {"help",
         [] {
             auto window = std::make_unique<CHelpWindow>();
             window->Open(HelpContext::Cover);
             return window;
         }},
    };
    for (const auto& [name, make] : windows) {
        SCOPED_TRACE(name);
        const std::unique_ptr<QWidget> window = make();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        ExpectNothingCutOff(*window);
        // On the smallest screen that the main window fits into.
        if (GetParam().fontPercent == 100) {
            EXPECT_LE(window->minimumSizeHint().width(), 600);
            EXPECT_LE(window->minimumSizeHint().height(), 480);
            ExpectAccessible(*window);
            // In the guide Tab goes through the links.
            if (std::string_view(name) != "help")
                ExpectReadByTab(*window);
        }
        Keep(*window, QStringLiteral("%1-%2").arg(QString::fromLatin1(name), QString::fromLatin1(GetParam().name)));
    }
}

TEST_P(Looks, EveryRegisterFitsIntoTheSmallestMainWindow) {
    SetUpDesktop();
    const WithLook look(GetParam());
    FreshSettings settings;
    StoreFolder f;
    f.Sql("INSERT INTO Cover(cover_name, cover_weight) VALUES ('Krabice', 2200)");
    CKuvelDoc document(f.store);
    CMainFrame frame(document);
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    for (const RegisterEntry& entry : Registers()) {
        frame.RunCommand(entry.show);
        frame.resize(600, 400);
        QTest::qWait(1);
        const QString name = QStringLiteral("main-%1-%2").arg(static_cast<int>(entry.show)).arg(GetParam().name);
        Keep(frame, name);
        if (GetParam().fontPercent == 100) {
            EXPECT_EQ(QSize(600, 400), frame.size()) << name.toStdString();
        }
    }
    for (const Command mode : {Command::ID_RECORD_FIND, Command::ID_RECORD_REPLACE}) {
        frame.RunCommand(mode);
        auto* const window = frame.findChild<QDialog*>(QStringLiteral("findReplaceDlg"));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        ExpectNothingCutOff(*window);
        ExpectAccessible(*window);
        ExpectReadByTab(*window);
        Keep(*window, QStringLiteral("find-%1-%2").arg(static_cast<int>(mode)).arg(GetParam().name));
    }
}

TEST_P(Looks, NoImportWindowCutsItsTextsOff) {
    SetUpDesktop();
    const WithLook look(GetParam());
    const ProgramFolder folder;
    ScriptedMessages messages;
    MoneyFolder money;
    money.Install('d', QStringLiteral("D:\\Data"));
    money.AddAgenda("d:/Data/Agenda.001", "Obchodní společnost Žluťoučký kůň, spol. s r.o.");
    money.AddYear("d:/Data/Agenda.001/Rok.2011", "2011");
    money.Write("d:/Data/Agenda.001/Rok.2012/Jiný.ini", {});
    const auto inspect = [&](QWidget& window, const char* name) {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(1);
        ExpectNothingCutOff(window);
        if (GetParam().fontPercent == 100) {
            EXPECT_LE(window.minimumSizeHint().width(), 600) << name;
            ExpectAccessible(window);
            ExpectReadByTab(window);
        }
        Keep(window, QStringLiteral("%1-%2").arg(QString::fromLatin1(name), QString::fromLatin1(GetParam().name)));
    };
    const auto lookAtPages = [&](const char* first, const char* second) {
        return [=, &inspect](QWidget& sheet) {
            if (auto* const list = sheet.findChild<QTreeWidget*>(QStringLiteral("agendaList")))
                QTest::keyClick(list, Qt::Key_Down);
            inspect(sheet, first);
            Click(sheet, "next");
            inspect(sheet, second);
            Click(sheet, "cancel");
        };
    };
    Steps steps;
    steps.Then(lookAtPages("import-money-1", "import-money-2"));
    CMoneyWizard().Run(nullptr);
    WakOptions stored;
    stored.database = "wak";
    ASSERT_FALSE(stored.Write());
    steps.Then(lookAtPages("import-wak-1", "import-wak-2"));
    CWakWizard(SilentProgress()).Run(nullptr);
    steps.Then([&](QWidget& window) {
        inspect(window, "import-question");
        Click(window, "noButton");
    });
    const OverwriteQuestion question{
        QStringLiteral("Produkt \"Čaj sypaný v plechovce 250 g, kat.č. K-000123456789\" byl již z Money importován. "
                       "Přejete si jej aktualizovat?"),
        {{"Název", "Čaj sypaný v plechovce 200 g, zelený, balení", "Čaj sypaný v plechovce 250 g"},
         {"Katalogové číslo", "K-000123456789", "K-000123456789"},
         {"Měrná jednotka", "", "ks"}}};
    CAskOverwriteDlg(question, nullptr).Ask();
}

INSTANTIATE_TEST_SUITE_P(Palettes, Looks,
                         testing::Values(Look{"light", false, 100}, Look{"dark", true, 100}, Look{"large", false, 200}),
                         [](const auto& look) { return std::string(look.param.name); });

} // namespace
