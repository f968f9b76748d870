// "Replace all" on a disk that fails, or of a program that is killed: each record is old or new.

#include "core/store/Engine.h"
#include "tests/support/Faults.h"
#include "tests/windows/support/RegisterFixture.h"

#include <QDialog>

#include <algorithm>

namespace {

using enum Command;

class ReplaceSubject : public IFaultSubject {
public:
    ReplaceSubject() : m_opened(ID_SHOW_COVERS) {
        m_opened.messages.AcceptAny();
        // Enough of them for several pages of the file.
        m_opened.folder.Sql(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200) "
            "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
            "cover_reusable, deleted) SELECT 'Krabice klopová číslo ' || i, 7, 100, 0, 0, 0, 0, 0 FROM n");
        m_opened.Execute(ID_RECORD_REFRESH);
        m_opened.Execute(ID_RECORD_REPLACE);
        TypeInto("find", "klopová");
        TypeInto("replaceWith", "s víkem");
        Click(Window(), "partial");
    }
    ~ReplaceSubject() override { Window().close(); }

    const ProgramFolder& Folder() const override { return m_opened.folder.folder; }

    std::int64_t Run(const std::function<void()>& arm) override {
        arm();
        m_opened.messages.Meanwhile(
            [this] { EXPECT_FALSE(m_opened.folder.store.Engine().InGroup()) << "a box over a lock"; });
        Click(Window(), "replaceAll");
        EXPECT_FALSE(m_opened.folder.store.Engine().InGroup());
        return -1;
    }

    std::size_t Messages() const override {
        const auto& shown = m_opened.messages.Shown();
        return static_cast<std::size_t>(std::count_if(
            shown.begin(), shown.end(), [](const Message& message) { return message.icon == Message::Icon::Error; }));
    }

private:
    QDialog& Window() { return Find<QDialog>(*m_opened.view->window(), "findReplaceDlg"); }
    void TypeInto(const char* combo, const char* text) {
        QLineEdit& edit = *Find<QComboBox>(Window(), combo).lineEdit();
        edit.setObjectName(QLatin1String(combo) + QStringLiteral("Edit"));
        TypeText(Window(), edit.objectName().toLatin1().constData(), text);
    }

    OpenRegister m_opened;
};

TEST(ReplaceFaults, LeaveEachRecordOldOrNew) {
    const FaultyOperation replaceAll = {"replace all", [] { return std::make_unique<ReplaceSubject>(); },
                                        "SELECT cover_id, cover_name FROM Cover"};
    ExpectWholeAfterAnyFault(replaceAll);
}

} // namespace
