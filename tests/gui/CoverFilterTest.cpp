#include "registers/CoverFilter.h"
#include "registers/IconButton.h"
#include "tests/gui/CoverFixture.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

class CoverFilterTest : public CoverFixture {};

TEST(CoverFilterClauses, BecomeClausesInOrder) {
    CoverFilter all;
    all.byName = all.byWeight = all.byMaterial = all.byType = all.byOrigin = all.byPayment = all.byUsage = true;
    all.name = Czech("o'r");
    all.weightFrom = Currency::FromCount(5000);
    all.weightTo = Currency::FromWhole(2);
    all.material = 1;
    all.type = 2;
    all.origin = 0;
    all.payment = 1;
    EXPECT_EQ(" AND (cover_name = 'o'r') AND (cover_weight>=0.5) AND (cover_weight<=2) AND (cover_mat = 1) AND "
              "(cover_type = 2) AND (cover_org = 0) AND (cover_pay = 1) AND (cover_reusable = FALSE)",
              all.Clauses());
    CoverFilter part;
    part.byName = part.namePart = part.byUsage = part.reusable = true;
    part.name = Czech("folie");
    EXPECT_EQ(" AND (cover_name LIKE '%folie%') AND (cover_reusable = TRUE)", part.Clauses());
    EXPECT_EQ("", CoverFilter().Clauses());
    EXPECT_FALSE(CoverFilter().IsActive());
}

TEST_F(CoverFilterTest, FiltersAndLatchesTheButton) {
    auto& button = Find<CIconButton>(view, "button32794");
    const auto filter = [&](const std::function<void(QWidget&)>& act, const char* end) {
        steps.Then([=](QWidget& dialog) {
            act(dialog);
            Click(dialog, end);
        });
        view.Run(Command::ID_RECORD_FILTER);
    };
    filter(
        [](QWidget& d) {
            EXPECT_EQ(Czech("Filtr obalů"), d.windowTitle());
            EXPECT_FALSE(Find<QLineEdit>(d, "name").isEnabled());
            Click(d, "byName");
            TypeText(d, "name", "folie");
            Click(d, "namePart");
        },
        "ok");
    EXPECT_EQ("PE folie 20 µm", Names(Covers()));
    EXPECT_TRUE(button.IsLatched());

    filter([](QWidget& d) { Click(d, "namePart"); }, "ok");
    EXPECT_EQ("", Names(Covers())) << "whole names only";

    filter([](QWidget& d) { Click(d, "byName"); }, "cancel");
    EXPECT_TRUE(button.IsLatched());
    filter(
        [](QWidget& d) {
            EXPECT_TRUE(Find<QCheckBox>(d, "byName").isChecked());
            Click(d, "byName");
            Click(d, "byWeight");
            TypeText(d, "weightFrom", "0,2");
            TypeText(d, "weightTo", "1");
        },
        "ok");
    EXPECT_EQ("Fólie", Names(Covers()));

    filter([](QWidget& d) { Click(d, "byWeight"); }, "ok");
    EXPECT_EQ(3, Covers().RowCount());
    EXPECT_FALSE(button.IsLatched());
}

TEST_F(CoverFilterTest, FilterChecksInOrder) {
    struct Case {
        std::vector<const char*> ticked;
        const char* message;
        const char* focus;
    };
    const std::vector<Case> cases = {
        {{"byWeight", "byMaterial"}, "Hmotnost \"Od\" nesmí být větší než hodnota \"do\"", "weightFrom"},
        {{"byMaterial", "byType"}, "Není vybrán materiál", "material"},
        {{"byType", "byOrigin"}, "Není vybrán typ", "type"},
        {{"byOrigin", "byPayment"}, "Není vybrán původ", "origin"},
        {{"byPayment"}, "Není vybrána platba", "payment"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.message);
        steps.Then([&](QWidget& dialog) {
            for (const char* check : each.ticked)
                Click(dialog, check);
            Find<QLineEdit>(dialog, "weightFrom").setText(QStringLiteral("2"));
            Find<QLineEdit>(dialog, "weightTo").setText(QStringLiteral("1,9999"));
            messages.Expect(Czech(each.message), Message::Icon::Warning);
            Click(dialog, "ok");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(each.focus, Focus(dialog));
            Click(dialog, "cancel");
        });
        view.Run(Command::ID_RECORD_FILTER);
    }
    EXPECT_FALSE(Find<CIconButton>(view, "button32794").IsLatched());
}

} // namespace
