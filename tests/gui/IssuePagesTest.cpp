#include "registers/PageProd.h"
#include "registers/PageQty.h"
#include "tests/gui/ProductFixture.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

/// The pages on which an issue's line is entered.
class IssuePagesTest : public ProductFixture {
protected:
    bool Run(const std::function<void(QWidget&)>& act) {
        CWizardSheet sheet(&view);
        sheet.AddPage(products);
        sheet.AddPage(quantity);
        steps.Then(act);
        return sheet.Run();
    }
    void Refuses(QWidget& sheet, const char* button, const char* message) {
        messages.Expect(Czech(message), Message::Icon::Warning);
        Find<QWidget>(sheet, "cancel").setFocus();
        Click(sheet, button);
        EXPECT_TRUE(sheet.isVisible());
    }

    CPageProd products{folder.store};
    CPageQty quantity;
};

TEST_F(IssuePagesTest, AProductAndItsQuantityAreEnteredWithTheKeysAlone) {
    EXPECT_TRUE(Run([](QWidget& sheet) {
        auto& list = Find<RecordList>(sheet, "products");
        EXPECT_EQ(Czech("Vyberte výrobek"), sheet.windowTitle());
        EXPECT_EQ("products", Focus(sheet));
        EXPECT_EQ("Čaj|C-10|ks\nChléb|B-3|ks\nKáva|K-2|kg", Rows(list));
        EXPECT_EQ(-1, list.SelectedRow());
        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ(0, list.SelectedRow());
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&sheet, Qt::Key_Return);
        EXPECT_EQ(Czech("Zadejte množství"), sheet.windowTitle());
        EXPECT_EQ("quantity", Focus(sheet));
        EXPECT_EQ(QStringLiteral("1"), Find<QLineEdit>(sheet, "quantity").selectedText());
        QTest::keyClicks(&Find<QLineEdit>(sheet, "quantity"), QStringLiteral("2,5"));
        QTest::keyClick(&sheet, Qt::Key_Return);
    }));
    EXPECT_EQ(3, products.ChosenId());
    EXPECT_EQ(Currency::FromCount(25000), quantity.Quantity());
}

TEST_F(IssuePagesTest, StaysUntilAProductIsChosenAndAQuantityIsPositive) {
    EXPECT_TRUE(Run([&](QWidget& sheet) {
        Refuses(sheet, "next", "Není vybrán produkt !");
        EXPECT_EQ("products", Focus(sheet));
        auto& list = Find<RecordList>(sheet, "products");
        ClickRow(list, 2);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(2, 0)).center());
        EXPECT_EQ(Czech("Zadejte množství"), sheet.windowTitle());
        for (const char* none : {"0", "", "-1"}) {
            TypeText(sheet, "quantity", none);
            Refuses(sheet, "finish", "Množství musí být větší než 0 !");
        }
        TypeText(sheet, "quantity", "0,0001");
        Click(sheet, "finish");
    }));
    EXPECT_EQ(2, products.ChosenId());
    EXPECT_EQ(1, quantity.Quantity().count);
}

TEST_F(IssuePagesTest, TheQuantityAloneOpensWithWhatIsStored) {
    for (const auto& [stored, shown] : std::vector<std::pair<Currency, const char*>>{
             {Currency::FromCount(123456), "12,3456"}, {Currency::Null(), "1"}, {Currency::FromCount(0), "0"}}) {
        quantity.SetQuantity(stored);
        CWizardSheet sheet(&view);
        sheet.AddPage(quantity);
        steps.Then([shown = shown](QWidget& window) {
            EXPECT_EQ(shown, Find<QLineEdit>(window, "quantity").selectedText().toStdString());
            EXPECT_EQ(QStringLiteral("OK"), Find<QPushButton>(window, "finish").text());
            Click(window, "cancel");
        });
        EXPECT_FALSE(sheet.Run());
    }
}

} // namespace
