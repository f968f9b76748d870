#include "windows/registers/packaging/PageCover.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"
#include "ui_PageCover.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/lists/RecordList.h"

namespace {

int s_lastTab = 0;

ListSpec SimpleCovers() {
    std::vector<ListColumn> columns =
        Columns({"cover_name", "cover_type", "cover_org", "cover_pay", "cover_mat", "cover_weight", "cover_reusable"});
    columns.back().header = QStringLiteral("Opakované použití");
    return PickerList("simple", "cover_id", columns);
}

ListSpec CompositeCovers() {
    return PickerList("composite", "ccover_id", Columns({"ccover_name", "ccover_note"}));
}

} // namespace

CPageCover::CPageCover(CDataStore& store, Offer offer)
    : m_store(store), m_ui(std::make_unique<Ui::PageCover>()), m_simple(new RecordList(store, SimpleCovers(), this)),
      m_composite(new RecordList(store, CompositeCovers(), this)) {
    m_ui->setupUi(this);
    m_simple->setAccessibleName(QStringLiteral("Jednoduché kuvel"));
    m_composite->setAccessibleName(QStringLiteral("Složené kuvel"));
    m_ui->tabs->addTab(m_simple, QStringLiteral("Jednoduché kuvel"));
    m_composite->hide();
    setTabOrder(m_ui->tabs, m_simple);
    setTabOrder(m_simple, m_composite);
    setMinimumSize(FittingPage(*this, {720, 360}));
    if (offer == Offer::SimpleAndComposite) {
        // A tab that is only hidden would still be reached with Ctrl+Tab.
        m_ui->tabs->addTab(m_composite, QStringLiteral("Složené kuvel"));
        m_ui->tabs->setCurrentIndex(s_lastTab);
    }
    connect(m_ui->tabs, &QTabWidget::currentChanged, this, [this](int tab) {
        s_lastTab = tab;
        OnTabShown();
    });
    connect(m_simple, &RecordList::rowDoubleClicked, this, [this] { Sheet().PressNext(); });
    connect(m_composite, &RecordList::rowDoubleClicked, this, [this] { Sheet().PressFinish(); });
}

CPageCover::~CPageCover() = default;

bool CPageCover::OnCompositeTab() const {
    return m_ui->tabs->currentWidget() == m_composite;
}

RecordList& CPageCover::CurrentList() const {
    return OnCompositeTab() ? *m_composite : *m_simple;
}

void CPageCover::OnTabShown() {
    bool& filled = OnCompositeTab() ? m_compositeFilled : m_simpleFilled;
    if (!filled)
        CurrentList().FillKeeping(OnCompositeTab() ? "SELECT * FROM CompCover ORDER BY ccover_name"
                                                   : "SELECT * FROM Cover WHERE deleted = FALSE ORDER BY cover_name",
                                  RecordList::NoId);
    filled = true;
    Sheet().SetButtons(OnCompositeTab() ? CWizardSheet::Ending::Finish : CWizardSheet::Ending::Next);
}

void CPageCover::OnSetActive() {
    OnTabShown();
    CurrentList().setFocus();
}

/// Takes the selected row of the current tab.
bool CPageCover::Choose() {
    const std::int32_t id = CurrentList().SelectedId();
    if (id == RecordList::NoId) {
        ShowWarning(QString::fromUtf8(Text::NoCover));
        CurrentList().setFocus();
        return false;
    }
    m_chosenId = id;
    m_isComposite = OnCompositeTab();
    return true;
}

bool CPageCover::OnWizardNext() {
    if (!Choose())
        return false;
    if (!m_follower)
        return true;
    CoverChoice choice{m_chosenId, {}};
    const bool read = Guarded([&] {
        const RecordsetPtr cover = m_store.Query(SqlText("SELECT * FROM Cover WHERE cover_id = %li", m_chosenId));
        if (cover->get_RecordCount() == 1)
            choice.terms = CoverTerms::Read(*cover);
    });
    if (read)
        m_follower(choice);
    return read;
}

QString CPageCover::Chosen() const {
    const int row = CurrentList().SelectedRow();
    return row < 0 ? QString() : CurrentList().CellText(row, 0);
}

bool CPageCover::OnWizardFinish() {
    return Choose();
}
