#include "windows/import/AskOverwriteDlg.h"

#include "ui_AskOverwriteDlg.h"
#include "windows/widgets/HelpButton.h"

CAskOverwriteDlg::CAskOverwriteDlg(const QString& question, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AskOverwriteDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->noToAllButton, HelpContext::ExistingRecords);
    m_ui->questionLabel->setText(question);
    using enum IOverwriteDoor::Answer;
    const std::pair<QPushButton*, IOverwriteDoor::Answer> buttons[] = {
        {m_ui->yesButton, Yes}, {m_ui->noButton, No}, {m_ui->yesToAllButton, YesToAll}, {m_ui->noToAllButton, NoToAll}};
    for (const auto& [button, answer] : buttons)
        connect(button, &QPushButton::clicked, this, [this, answer = answer] {
            m_answer = answer;
            accept();
        });
}

CAskOverwriteDlg::~CAskOverwriteDlg() = default;

IOverwriteDoor::Answer CAskOverwriteDlg::Ask() {
    exec();
    return m_answer;
}
