#include "windows/registers/issues/MoveDlg.h"

#include "core/store/DataStore.h"
#include "ui_MoveDlg.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/edits/CodeCombo.h"

CMoveDlg::CMoveDlg(const CDataStore& store, QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::MoveDlg>()) {
    m_ui->setupUi(this);
    FillCodes(*m_ui->type, store.Codes(CodeList::MoveType));
    SetValues({});
    connect(m_ui->ok, &QPushButton::clicked, this, &CMoveDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->help, &QPushButton::clicked, this, [] { OpenHelp(HelpContext::Issue); });
}

CMoveDlg::~CMoveDlg() = default;

void CMoveDlg::SetValues(const IssueValues& values) {
    m_ui->num->setText(values.number);
    SelectCode(*m_ui->type, values.type);
    m_ui->date->SetValue(values.date);
    m_ui->exported->setChecked(values.isExport);
    m_ui->num->setFocus();
    m_ui->num->selectAll();
}

IssueValues CMoveDlg::Values() const {
    return {m_ui->num->text(), ChosenCode(*m_ui->type), m_ui->date->Value(), m_ui->exported->isChecked()};
}

void CMoveDlg::accept() {
    if (!TakeLine(*m_ui->num, "move_num") || !CheckTyped(*this))
        return;
    if (ChosenCode(*m_ui->type) < 0) {
        Refuse(*m_ui->type, "Není vybrán typ výdeje!");
        return;
    }
    QDialog::accept();
}
