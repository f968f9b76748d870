#include "windows/registers/packaging/PageDateRange.h"

#include "ui_PageDateRange.h"

CPageDateRange::CPageDateRange() : m_ui(std::make_unique<Ui::PageDateRange>()) {
    m_ui->setupUi(this);
}

CPageDateRange::~CPageDateRange() = default;

DateTime CPageDateRange::Date() const {
    return m_ui->date->Value();
}

void CPageDateRange::OnSetActive() {
    CWizardPage::OnSetActive();
    m_ui->date->setFocus();
}
