#include "windows/import/PageImpWAK.h"

#include "core/import/ImportSource.h"
#include "core/import/wak/SqlServerConnection.h"
#include "ui_PageImpWAK.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/Refuse.h"

namespace {

struct TextField {
    QLineEdit* Ui::PageImpWAK::*edit;
    QString WakOptions::*text;
};

constexpr TextField Fields[] = {
    {&Ui::PageImpWAK::serverEdit, &WakOptions::server},
    {&Ui::PageImpWAK::databaseEdit, &WakOptions::database},
    {&Ui::PageImpWAK::userEdit, &WakOptions::user},
    {&Ui::PageImpWAK::passwordEdit, &WakOptions::password},
};

QLineEdit& EditOf(const Ui::PageImpWAK& ui, WakComplaint::Field field) {
    switch (field) {
    case WakComplaint::Field::Server:
        return *ui.serverEdit;
    case WakComplaint::Field::Database:
        return *ui.databaseEdit;
    case WakComplaint::Field::User:
        break;
    }
    return *ui.userEdit;
}

} // namespace

CPageImpWAK::CPageImpWAK(WakOptions& options, IProgressDoor& progress)
    : m_ui(std::make_unique<Ui::PageImpWAK>()), m_options(options), m_progress(progress) {
    m_ui->setupUi(this);
    for (const TextField& field : Fields) {
        QLineEdit& edit = *(m_ui.get()->*field.edit);
        edit.setText(m_options.*field.text);
        connect(&edit, &QLineEdit::textChanged, this,
                [this, &field](const QString& text) { m_options.*field.text = text; });
    }
    (m_options.windows ? m_ui->windowsRadio : m_ui->sqlServerRadio)->setChecked(true);
    connect(m_ui->windowsRadio, &QRadioButton::toggled, this, [this](bool on) {
        m_options.windows = on;
        EnableLogin();
    });
    m_ui->storePasswordCheck->setChecked(m_options.storePassword);
    connect(m_ui->storePasswordCheck, &QCheckBox::toggled, this, [this](bool on) {
        m_options.storePassword = on;
        NotePassword();
    });
    connect(m_ui->passwordEdit, &QLineEdit::textChanged, this, &CPageImpWAK::NotePassword);
    connect(m_ui->testButton, &QPushButton::clicked, this, &CPageImpWAK::TestConnection);
}

CPageImpWAK::~CPageImpWAK() = default;

void CPageImpWAK::EnableLogin() {
    m_ui->userEdit->setEnabled(!m_options.windows);
    m_ui->passwordEdit->setEnabled(!m_options.windows);
    m_ui->storePasswordCheck->setEnabled(!m_options.windows);
    NotePassword();
}

void CPageImpWAK::NotePassword() {
    const QString note = WakPasswordNote(m_options);
    m_ui->passwordNote->setText(note);
    m_ui->passwordNote->setVisible(!note.isEmpty());
}

void CPageImpWAK::OnSetActive() {
    CWizardPage::OnSetActive();
    EnableLogin();
    m_ui->serverEdit->setFocus();
    m_ui->serverEdit->selectAll();
}

bool CPageImpWAK::Check() {
    WakOptions trimmed = m_options;
    const std::optional<WakComplaint> complaint = CheckWakConnection(trimmed);
    for (const TextField& field : Fields)
        (m_ui.get()->*field.edit)->setText(trimmed.*field.text);
    return !complaint || Refuse(EditOf(*m_ui, complaint->field), complaint->text);
}

void CPageImpWAK::TestConnection() {
    if (!Check())
        return;
    Guarded([this] {
        if (Connects())
            ShowMessage(QStringLiteral("Spojení s databází vytvořeno!"), Message::Icon::Information);
    });
}

bool CPageImpWAK::Connects() {
    const std::unique_ptr<IProgress> waiting = m_progress.Open(QStringLiteral("Kuvel"), true);
    waiting->SetRange(0, 0);
    waiting->SetPhaseText(QStringLiteral("Připojuji se k serveru"));
    waiting->SetDetailText(m_options.server);
    CSqlServerConnection connection;
    try {
        return connection.Connect(m_options.server, m_options.database, m_options.user, m_options.password,
                                  m_options.windows, [&waiting] {
                                      if (waiting->CancelRequested())
                                          throw ImportCancelled();
                                  });
    } catch (const ImportCancelled&) {
        return false;
    }
}
