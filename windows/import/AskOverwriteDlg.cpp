#include "windows/import/AskOverwriteDlg.h"

#include "ui_AskOverwriteDlg.h"
#include "windows/widgets/HelpButton.h"

namespace {

QString Cell(const QString& text, bool isBold) {
    const QString shown = text.isEmpty() ? QStringLiteral("&ndash;") : text.toHtmlEscaped();
    return QStringLiteral("<td style='padding-right:16px'>") +
           (isBold ? QStringLiteral("<b>") + shown + QStringLiteral("</b>") : shown) + QStringLiteral("</td>");
}

/// What differs is bold.
QString Table(const std::vector<OverwriteQuestion::Value>& values) {
    QString rows = QStringLiteral("<tr><td></td>") + Cell(QStringLiteral("Nyní"), false) +
                   Cell(QStringLiteral("Po přepsání"), false) + QStringLiteral("</tr>");
    for (const OverwriteQuestion::Value& value : values)
        rows += QStringLiteral("<tr>") + Cell(value.name, false) + Cell(value.stored, false) +
                Cell(value.incoming, value.incoming != value.stored) + QStringLiteral("</tr>");
    return QStringLiteral("<table cellspacing='2'>") + rows + QStringLiteral("</table>");
}

} // namespace

CAskOverwriteDlg::CAskOverwriteDlg(const OverwriteQuestion& question, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AskOverwriteDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->noToAllButton, HelpContext::ExistingRecords);
    m_ui->questionLabel->setText(question.text);
    m_ui->valuesLabel->setText(Table(question.values));
    m_ui->valuesLabel->setVisible(!question.values.empty());
    using enum IOverwriteDoor::Answer;
    const std::pair<QPushButton*, IOverwriteDoor::Answer> buttons[] = {{m_ui->yesButton, Yes},
                                                                       {m_ui->noButton, No},
                                                                       {m_ui->yesToAllButton, YesToAll},
                                                                       {m_ui->noToAllButton, NoToAll},
                                                                       {m_ui->stopButton, Stop}};
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
