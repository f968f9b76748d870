#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/help/HelpBrowser.h"
#include "windows/frame/help/HelpKey.h"
#include "windows/frame/help/HelpPages.h"
#include "windows/frame/help/HelpWindow.h"
#include "windows/widgets/WizardSheet.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

namespace {

QString FileText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the attribute says, each time it stands in the page.
QStringList Attributes(const QString& page, const char* name) {
    static const QString Pattern = QStringLiteral("\\b%1=\"([^\"]*)\"");
    QStringList values;
    auto each = QRegularExpression(Pattern.arg(QString::fromLatin1(name))).globalMatch(page);
    while (each.hasNext())
        values.append(each.next().captured(1));
    return values;
}

/// Empty when the address leads somewhere in the guide.
std::string Fault(const QString& page, const QString& address) {
    const QUrl url = QUrl(QStringLiteral("/help/") + page).resolved(QUrl(address));
    const QString file = FileText(QLatin1Char(':') + url.path());
    if (!QFile::exists(QLatin1Char(':') + url.path()))
        return (page + QStringLiteral(": no file ") + address).toStdString();
    if (url.hasFragment() && !Attributes(file, "id").contains(url.fragment()))
        return (page + QStringLiteral(": no anchor ") + address).toStdString();
    return {};
}

TEST(Guide, EveryContextHasItsPageAndAnchor) {
    SetUpDesktop();
    std::vector<HelpContext> contexts;
    for (const HelpPage& page : HelpPages()) {
        EXPECT_EQ("", Fault({}, QString::fromLatin1(page.address)));
        contexts.push_back(page.context);
    }
    std::vector<HelpContext> all = {HelpContext::Contents, HelpContext::Cover};
    for (int each = static_cast<int>(HelpContext::CompositeCover); each <= static_cast<int>(HelpContext::Messages);
         ++each)
        all.push_back(static_cast<HelpContext>(each));
    std::sort(contexts.begin(), contexts.end());
    EXPECT_EQ(all, contexts);
}

TEST(Guide, EveryLinkLeadsSomewhereAndEveryFileIsReached) {
    SetUpDesktop();
    QStringList reached = {QStringLiteral("index.html")};
    for (qsizetype next = 0; next < reached.size(); ++next) {
        const QString page = reached[next];
        if (!page.endsWith(QLatin1String(".html")))
            continue;
        const QString text = FileText(QStringLiteral(":/help/") + page);
        EXPECT_TRUE(text.contains(QLatin1String("<title>")) && text.contains(QLatin1String("<h1>")))
            << page.toStdString();
        for (const QString& address : Attributes(text, "href") + Attributes(text, "src")) {
            EXPECT_EQ("", Fault(page, address));
            const QString file = QUrl(address).path();
            if (!file.isEmpty() && !reached.contains(file))
                reached.append(file);
        }
        EXPECT_EQ(Attributes(text, "src").size(), Attributes(text, "alt").size()) << page.toStdString();
    }
    const QDir guide(QStringLiteral(KUVEL_SOURCE_DIR "/help"));
    QStringList files = guide.entryList(QDir::Files);
    for (const QString& picture : QDir(guide.filePath(QStringLiteral("obrazky"))).entryList(QDir::Files))
        files.append(QStringLiteral("obrazky/") + picture);
    files.sort();
    reached.sort();
    EXPECT_EQ(files, reached);
}

TEST(Guide, SpeaksOfEveryDialogAndWizardPage) {
    for (const QFileInfo& form :
         QDir(QStringLiteral(KUVEL_SOURCE_DIR "/resources")).entryInfoList({QStringLiteral("*.ui")})) {
        const QString text = FileText(form.filePath());
        const auto top = QRegularExpression(QStringLiteral("<widget class=\"\\w+\" name=\"(\\w+)\"")).match(text);
        QWidget window;
        window.setObjectName(top.captured(1));
        // It takes no keys but its button's.
        const bool expected = form.baseName() != QLatin1String("ProgressDlg");
        EXPECT_EQ(expected, HelpContextOf(window).has_value()) << form.fileName().toStdString();
    }
}

TEST(HelpKey, OpensThePageOfTheWindowThatHasTheFocus) {
    SetUpDesktop();
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    {
        const CHelpKey key(nullptr);
        QDialog dialog;
        dialog.setObjectName(QStringLiteral("wizardSheet"));
        QWidget page(&dialog);
        page.setObjectName(QStringLiteral("PageQty"));
        QLineEdit edit(&page);
        QLineEdit outside(&dialog);
        QTest::keyClick(&edit, Qt::Key_F1);
        QTest::keyClick(&outside, Qt::Key_F1);
        QDialog box(&page); // the page that a box stands over is not the box's
        QTest::keyClick(&box, Qt::Key_F1);
        box.setObjectName(QStringLiteral("messageBox"));
        QTest::keyClick(&box, Qt::Key_F1);
    }
    EXPECT_EQ((std::vector<HelpContext>{HelpContext::IssueItem, HelpContext::Messages}), opened);
}

struct HelpWindow : testing::Test {
    FreshSettings settings;
    CHelpWindow help;
    CHelpBrowser& browser = Find<CHelpBrowser>(help, "helpBrowser");
    QTreeWidget& contents = Find<QTreeWidget>(help, "helpContents");

    static void SetUpTestSuite() { SetUpDesktop(); }
    std::string Page() const { return browser.source().fileName().toStdString(); }
    QStringList Shown() const {
        QStringList titles;
        for (QTreeWidgetItemIterator item(&contents, QTreeWidgetItemIterator::NotHidden); *item != nullptr; ++item)
            if ((*item)->childCount() == 0)
                titles.append((*item)->text(0));
        return titles;
    }
};

TEST_F(HelpWindow, OpensAtItsContextsWithTheContentsBeside) {
    help.Open(HelpContext::CompositeCover);
    EXPECT_EQ("slozene-obaly.html", Page());
    EXPECT_EQ("Složené obaly", contents.currentItem()->text(0).toStdString());
    EXPECT_LT(0, browser.verticalScrollBar()->value()) << "at its anchor";
    help.Open(HelpContext::Contents);
    EXPECT_EQ("index.html", Page());
    EXPECT_EQ(QDir(QStringLiteral(KUVEL_SOURCE_DIR "/help")).entryList({QStringLiteral("*.html")}).size(),
              Shown().size());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&help, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ("slozene-obaly.html", Page());
    help.resize(500, 400);
    QTest::qWait(1);
    EXPECT_EQ(0, browser.horizontalScrollBar()->maximum()) << "pictures shrink";
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpWindow, FindsWordsWithoutTheirAccents) {
    help.Open(HelpContext::Contents);
    QTest::keyClick(&help, Qt::Key_F, Qt::ControlModifier);
    TypeText(help, "helpSearch", "OPOTREBUJI");
    EXPECT_EQ(QStringList{QStringLiteral("Vyřazené obaly")}, Shown());
    QTest::keyClick(&Find<QLineEdit>(help, "helpSearch"), Qt::Key_Return);
    EXPECT_EQ("vyrazene-obaly.html", Page());
    ASSERT_EQ(1, browser.extraSelections().size());
    EXPECT_EQ("opotřebují", browser.extraSelections().front().cursor.selectedText().toStdString());
    TypeText(help, "helpSearch", "xyz");
    EXPECT_EQ(QStringList{QStringLiteral("Nic nenalezeno")}, Shown());
    EXPECT_EQ(0, browser.extraSelections().size());
}

TEST_F(HelpWindow, FindsWordsInAnyOfTheirForms) {
    help.Open(HelpContext::Contents);
    const struct {
        QStringList forms;
        QString page;
        QString marked;
    } words[] = {
        {{QStringLiteral("zaloha"), QStringLiteral("zálohy"), QStringLiteral("zálohou")},
         QStringLiteral("Zálohování a obnovení dat"),
         QStringLiteral("zálohy")},
        {{QStringLiteral("výrobek"), QStringLiteral("vyrobku"), QStringLiteral("výrobky")},
         QStringLiteral("Výrobky"),
         QStringLiteral("výrobků")},
        {{QStringLiteral("obnovit zaloha"), QStringLiteral("zaloha obnovit")},
         QStringLiteral("Zálohování a obnovení dat"),
         QStringLiteral("Obnovit")},
    };
    for (const auto& word : words) {
        QStringList first;
        for (const QString& form : word.forms) {
            TypeText(help, "helpSearch", form.toUtf8().constData());
            EXPECT_TRUE(Shown().contains(word.page)) << form.toStdString();
            first = first.isEmpty() ? Shown() : first;
            EXPECT_EQ(first, Shown()) << form.toStdString();
            contents.setCurrentItem(contents.findItems(word.page, Qt::MatchExactly | Qt::MatchRecursive).front());
            QStringList marked;
            for (const auto& place : browser.extraSelections())
                marked.append(place.cursor.selectedText());
            EXPECT_TRUE(marked.contains(word.marked)) << form.toStdString();
            help.Open(HelpContext::Contents);
        }
    }
}

TEST_F(HelpWindow, ItsButtonsHaveIconsAndItsPicturesAFrame) {
    for (const QAction* action : Find<QToolBar>(help, "helpBar").actions())
        EXPECT_FALSE(action->icon().pixmap(16).isNull()) << action->text().toStdString();
    help.Open(HelpContext::Options);
    EXPECT_LT(0, Find<QLineEdit>(help, "helpSearch").x());
    const QVariant picture = browser.document()->resource(QTextDocument::ImageResource,
                                                          QUrl(QStringLiteral("qrc:/help/obrazky/moznosti.png")));
    const auto image = picture.value<QImage>();
    ASSERT_FALSE(image.isNull());
    for (const QPoint corner : {QPoint(0, 0), QPoint(image.width() - 1, image.height() - 1)})
        EXPECT_EQ(QColor(0x8c, 0x8c, 0x8c), image.pixelColor(corner));
}

TEST(WizardSheet, ItsHelpButtonMeansThePageThatIsShown) {
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    {
        const CHelpKey key(nullptr);
        CWizardSheet sheet(nullptr);
        CWizardPage first, second;
        first.setObjectName(QStringLiteral("pageImpS3"));
        second.setObjectName(QStringLiteral("PageQty"));
        sheet.AddPage(first);
        sheet.AddPage(second);
        Steps steps;
        steps.Then(InTurn({Clicked("help"), Clicked("next"), Clicked("help"), Clicked("cancel")}));
        EXPECT_FALSE(sheet.Run());
    }
    EXPECT_EQ((std::vector{HelpContext::MoneyImport, HelpContext::IssueItem}), opened);
}

TEST_F(HelpWindow, IsUsableOverAModalDialogWhicheverWasFirst) {
    help.Open(HelpContext::Cover);
    for (const bool askedInDialog : {true, false}) {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            if (askedInDialog)
                help.Open(HelpContext::Contents);
            QTest::qWait(1);
            help.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&help));
            QTest::keyClick(help.windowHandle(), askedInDialog ? Qt::Key_Left : Qt::Key_Right, Qt::AltModifier);
            EXPECT_EQ(askedInDialog ? "obaly.html" : "index.html", Page());
            dialog.accept();
        });
        dialog.exec();
        QTest::qWait(1);
    }
    EXPECT_TRUE(help.isVisible());
}

} // namespace
