// Every edit in the registers on a disk that fails, or of a program that is killed: the file holds the state before the
// edit, or the state after it.

#include "core/store/Engine.h"
#include "tests/support/Faults.h"
#include "tests/windows/support/RegisterFixture.h"

#include <algorithm>

namespace {

using enum Command;

struct Edit {
    const char* name;
    Command show;
    Command command;
    /// In its dialog, before the button that ends it; an edit without a dialog is answered with Yes.
    std::vector<Act> acts;
    const char* end;
    int selected = 1;
};

class EditSubject : public IFaultSubject {
public:
    explicit EditSubject(const Edit& edit) : m_edit(edit), m_opened(edit.show) {
        m_opened.messages.AcceptAny();
        // What could not be saved comes back.
        m_opened.steps.Otherwise(Clicked("cancel"));
        auto& master = static_cast<RecordList&>(*m_opened.view->focusProxy());
        for (int row = 0; row < edit.selected; ++row)
            ClickRow(master, row, row == 0 ? Qt::KeyboardModifiers() : Qt::ControlModifier);
    }

    const ProgramFolder& Folder() const override { return m_opened.folder.folder; }

    std::int64_t Run(const std::function<void()>& arm) override {
        const auto begin = [this, arm] {
            arm();
            m_opened.messages.Meanwhile(
                [this] { EXPECT_FALSE(m_opened.folder.store.Engine().InGroup()) << "a box over a lock"; });
        };
        if (m_edit.end != nullptr) {
            const Act armed = [begin](QWidget&) { begin(); };
            m_opened.Do(m_edit.command, {InTurn(m_edit.acts), armed, Clicked(m_edit.end)});
        } else {
            m_opened.messages.AcceptAny(Message::Answer::Yes);
            m_opened.messages.Meanwhile(begin);
            m_opened.Execute(m_edit.command);
        }
        EXPECT_FALSE(m_opened.folder.store.Engine().InGroup());
        return -1;
    }

    std::size_t Messages() const override {
        const auto& shown = m_opened.messages.Shown();
        return static_cast<std::size_t>(std::count_if(
            shown.begin(), shown.end(), [](const Message& message) { return message.icon == Message::Icon::Error; }));
    }

private:
    const Edit m_edit;
    OpenRegister m_opened;
};

std::vector<Edit> Edits() {
    const auto nothing = std::vector<Act>();
    return {
        {"cover, propagated", ID_SHOW_COVERS, ID_RECORD_EDIT, {Picked("payment", 2)}, "ok"},
        {"discard", ID_SHOW_COVERS, ID_DETAIL_ADD, {Typed("quantity", "3")}, "finish"},
        {"deletion of covers", ID_SHOW_COVERS, ID_RECORD_DELETE, nothing, nullptr, 2},
        {"composite with its items",
         ID_SHOW_COMPOSITES,
         ID_RECORD_EDIT,
         {Typed("name", "Jiná"), Typed("note", "x")},
         "ok"},
        {"deletion of composites", ID_SHOW_COMPOSITES, ID_RECORD_DELETE, nothing, nullptr, 2},
        {"validity date", ID_SHOW_PRODUCTS, ID_DETAIL_ADD, nothing, "ok"},
        {"deletion of a date", ID_SHOW_PRODUCTS, ID_DETAIL_DELETE, nothing, nullptr},
        {"packaging row", ID_SHOW_PRODUCTS, ID_SUBDETAIL_EDIT, {Typed("covers", "8")}, "finish"},
        {"new packaging row", ID_SHOW_PRODUCTS, ID_SUBDETAIL_ADD, {ChoseCover(1)}, "finish"},
        {"deletion of a packaging row", ID_SHOW_PRODUCTS, ID_SUBDETAIL_DELETE, nothing, nullptr},
        {"assignment", ID_SHOW_PRODUCTS, ID_PROD_ASSIGN_COVERS, {Clicked("next"), ChoseCover(1)}, "finish"},
        {"deletion of products", ID_SHOW_PRODUCTS, ID_RECORD_DELETE, nothing, nullptr, 2},
        {"new issue line",
         ID_SHOW_ISSUES,
         ID_DETAIL_ADD,
         {Chose("products", 0), Clicked("next"), Typed("quantity", "11")},
         "finish"},
        {"issue line", ID_SHOW_ISSUES, ID_DETAIL_EDIT, {Typed("quantity", "30")}, "finish"},
        {"deletion of a line", ID_SHOW_ISSUES, ID_DETAIL_DELETE, nothing, nullptr},
        {"packaging by hand", ID_SHOW_ISSUES, ID_SUBDETAIL_ADD, {ChoseCover(1)}, "finish"},
        {"deletion of issues", ID_SHOW_ISSUES, ID_RECORD_DELETE, nothing, nullptr, 2},
    };
}

/// The edits that begin at one of three places of the table, so that the three run beside each other.
class EditFaults : public testing::TestWithParam<std::size_t> {};

TEST_P(EditFaults, LeaveTheStateBeforeOrAfter) {
    const std::vector<Edit> edits = Edits();
    for (std::size_t i = GetParam(); i < edits.size(); i += 3)
        ExpectWholeAfterAnyFault({edits[i].name, [&] { return std::make_unique<EditSubject>(edits[i]); }, {}});
}

INSTANTIATE_TEST_SUITE_P(All, EditFaults, testing::Range<std::size_t>(0, 3));

} // namespace
