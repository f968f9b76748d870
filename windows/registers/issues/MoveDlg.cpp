#include "windows/registers/issues/MoveDlg.h"

#include "core/store/DataStore.h"
#include "ui_MoveDlg.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/edits/CodeCombo.h"

CMoveDlg::CMoveDlg(const CDataStore& store, QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::MoveDlg>()) {
    m_ui->setupUi(this);
    FillCodes(*m_ui->type, store.Codes(CodeList::MoveType));
    SelectCode(*m_ui->type, -1);
    m_ui->date->SetValue(DateTime::Now());
    m_ui->num->setFocus();
    connect(m_ui->ok, &QPushButton::clicked, this, &CMoveDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->help, &QPushButton::clicked, this, [] { OpenHelp(HelpContext::Issue); });
}

CMoveDlg::~CMoveDlg() = default;

void CMoveDlg::Read(const CRecordset& issue) {
    m_ui->num->setText(FormatVariant(issue.get_Collect("move_num")));
    SelectCode(*m_ui->type, issue.Code("move_type"));
    const DateTime date = ToDate(issue.get_Collect("move_date"));
    m_ui->date->SetValue(date.IsValid() ? date : DateTime::FromDay(1900, 1, 1));
    m_ui->exported->setChecked(ToBool(issue.get_Collect("move_export")));
    m_ui->num->setFocus();
    m_ui->num->selectAll();
}

void CMoveDlg::Write(CRecordset& issue) const {
    issue.put_Collect("move_num", m_ui->num->text());
    issue.put_Collect("move_type", ChosenCode(*m_ui->type));
    issue.put_Collect("move_date", m_ui->date->Value());
}

void CMoveDlg::WriteExport(CRecordset& issue) const {
    issue.put_Collect("move_export", m_ui->exported->isChecked());
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
