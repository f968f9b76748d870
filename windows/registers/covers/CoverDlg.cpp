#include "windows/registers/covers/CoverDlg.h"

#include "ui_CoverDlg.h"
#include "windows/registers/packaging/TermsLists.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/Refuse.h"

CCoverDlg::CCoverDlg(const CDataStore& store, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CoverDlg>()) {
    m_ui->setupUi(this);
    FillLists(store);
    SetValues({});
    connect(m_ui->material, &QComboBox::activated, this, &CCoverDlg::OnMaterialChosen);
    connect(m_ui->stat, &QComboBox::activated, this, &CCoverDlg::OnStatChosen);
    connect(m_ui->ok, &QPushButton::clicked, this, &CCoverDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->help, &QPushButton::clicked, this, [] { OpenHelp(HelpContext::Cover); });
}

CCoverDlg::~CCoverDlg() = default;

void CCoverDlg::FillLists(const CDataStore& store) {
    // Textile stands directly after wood.
    QStringList materials = store.Codes(CodeList::CoverMaterial);
    const QString textile = materials.takeAt(Material::Textile);
    FillCodes(*m_ui->material, materials);
    m_ui->material->insertItem(1, textile, int{Material::Textile});
    FillTerms(*m_ui, store);
    FillCodes(*m_ui->stat, store.Codes(CodeList::CoverStat));
}

void CCoverDlg::SetValues(const CoverValues& values) {
    m_values = values;
    m_ui->name->setText(values.name);
    m_ui->note->setText(values.note);
    m_ui->reusable->setChecked(values.reusable);
    m_ui->weight->SetValue(Currency::FromCount(values.weight.count));
    SelectCode(*m_ui->material, values.material);
    ShowTerms(*m_ui, values.terms);
    SelectCode(*m_ui->stat, values.stat);
    m_ui->name->setFocus();
    m_ui->name->selectAll();
}

void CCoverDlg::OnMaterialChosen() {
    if (ChosenCode(*m_ui->material) == Material::BeverageCarton)
        SelectCode(*m_ui->stat, Stat::BeverageCarton);
}

void CCoverDlg::OnStatChosen() {
    switch (ChosenCode(*m_ui->stat)) {
    case Stat::EurPallet:
    case Stat::PlainPallet:
        SelectCode(*m_ui->material, Material::Wood);
        break;
    case Stat::BeverageCarton:
        SelectCode(*m_ui->material, Material::BeverageCarton);
        break;
    default:
        break;
    }
}

bool CCoverDlg::TakeValues() {
    if (!TakeLine(*m_ui->name, "cover_name") || !TakeLine(*m_ui->note, "cover_note") || !CheckTyped(*this))
        return false;
    m_values.name = m_ui->name->text();
    m_values.note = m_ui->note->text();
    m_values.reusable = m_ui->reusable->isChecked();
    m_values.weight = m_ui->weight->Value();
    m_values.material = ChosenCode(*m_ui->material);
    m_values.terms = ChosenTerms(*m_ui);
    m_values.stat = ChosenCode(*m_ui->stat);
    return true;
}

void CCoverDlg::accept() {
    if (!TakeValues())
        return;
    if (m_values.weight.count <= 0) {
        ShowWarning(QStringLiteral("Hmotnost musí být větší než 0!"));
        m_ui->weight->FocusAll();
        return;
    }
    const struct {
        QComboBox* combo;
        const char* missing;
    } choices[] = {
        {m_ui->material, "Není vybrán materiál!"},
        {m_ui->type, "Není vybrán typ!"},
        {m_ui->origin, "Není vybrán původ!"},
        {m_ui->payment, "Není vybrána platba!"},
        {m_ui->stat, "Není vybrán údaj pro statistickou evidenci!"},
    };
    for (const auto& choice : choices) {
        if (ChosenCode(*choice.combo) < 0) {
            Refuse(*choice.combo, choice.missing);
            return;
        }
    }
    QDialog::accept();
}
