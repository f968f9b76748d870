#include "windows/registers/products/ProdDlg.h"

#include "ui_ProdDlg.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/Refuse.h"

namespace {

void CutTrailingBlanks(QLineEdit& edit) {
    QString text = edit.text();
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    edit.setText(text);
}

} // namespace

CProdDlg::CProdDlg(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::ProdDlg>()) {
    m_ui->setupUi(this);
    m_ui->name->setFocus();
    connect(m_ui->ok, &QPushButton::clicked, this, &CProdDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->help, &QPushButton::clicked, this, [] { OpenHelp(HelpContext::Product); });
}

CProdDlg::~CProdDlg() = default;

void CProdDlg::SetValues(const ProductValues& values) {
    m_ui->name->setText(values.name);
    m_ui->katalog->setText(values.catalogue);
    m_ui->unit->setText(values.unit);
    m_ui->name->setFocus();
    m_ui->name->selectAll();
}

ProductValues CProdDlg::Values() const {
    return {m_ui->name->text(), m_ui->katalog->text(), m_ui->unit->text()};
}

void CProdDlg::accept() {
    if (!TakeLine(*m_ui->name, "prod_name", false) || !TakeLine(*m_ui->katalog, "prod_katalog", false) ||
        !TakeLine(*m_ui->unit, "prod_unit", false))
        return;
    CutTrailingBlanks(*m_ui->name);
    CutTrailingBlanks(*m_ui->katalog);
    if (m_ui->name->text().isEmpty() && m_ui->katalog->text().isEmpty()) {
        Refuse(*m_ui->name, "Musíte zadat jméno nebo katalog!");
        return;
    }
    QDialog::accept();
}
