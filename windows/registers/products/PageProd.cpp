#include "windows/registers/products/PageProd.h"

#include "windows/widgets/Refuse.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/lists/RecordList.h"

#include <QVBoxLayout>

CPageProd::CPageProd(CDataStore& store)
    : m_products(new RecordList(
          store, PickerList("products", "prod_id", Columns({"prod_name", "prod_katalog", "prod_unit"})), this)) {
    setObjectName(QStringLiteral("PageProd"));
    setWindowTitle(QStringLiteral("Vyberte výrobek"));
    setMinimumSize(FittingPage(*this, {560, 320}));
    m_products->setAccessibleName(QStringLiteral("Výrobky"));
    auto* all = new QVBoxLayout(this);
    all->addWidget(m_products);
    connect(m_products, &RecordList::rowDoubleClicked, this, [this] { Sheet().PressNext(); });
}

void CPageProd::OnSetActive() {
    CWizardPage::OnSetActive();
    if (!m_filled)
        m_products->FillKeeping("SELECT * FROM Product WHERE Product.deleted = FALSE ORDER BY prod_name",
                                RecordList::NoId);
    m_filled = true;
    m_products->setFocus();
}

bool CPageProd::OnWizardNext() {
    const std::int32_t id = m_products->SelectedId();
    if (id == RecordList::NoId)
        return Refuse(*m_products, Text::NoProduct);
    m_chosenId = id;
    return true;
}

QString CPageProd::Chosen() const {
    const int row = m_products->SelectedRow();
    return row < 0 ? QString() : m_products->CellText(row, 0);
}
