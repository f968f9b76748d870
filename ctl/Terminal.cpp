#include "ctl/Terminal.h"

#include "core/base/SystemError.h"
#include "ctl/Failure.h"
#include "ctl/Interrupts.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int BarWidth = 20;
constexpr int DefaultColumns = 80;

class TerminalWindow : public IProgress {
public:
    TerminalWindow(CTerminal& terminal, QString title, bool hasCancel)
        : m_terminal(terminal), m_title(std::move(title)), m_hasCancel(hasCancel) {}
    ~TerminalWindow() override { m_terminal.HideBar(); }

    void SetRange(int low, int high) override {
        m_low = low;
        m_high = std::max(high, low + 1);
    }
    void SetPhaseText(const QString& text) override {
        // The first phase announces work that has not begun; there is nothing to break off yet.
        const bool first = m_phase.isEmpty();
        m_phase = text;
        m_detail.clear();
        Draw();
        if (!first)
            BreakOff();
    }
    void SetDetailText(const QString& text) override {
        m_detail = text;
        Draw();
    }
    void SetPosition(int position) override {
        m_position = std::clamp(position, m_low, m_high);
        Draw();
        BreakOff();
    }
    bool CancelRequested() override { return m_interrupts.Noted(); }

private:
    void BreakOff() const {
        if (!m_hasCancel && m_interrupts.Noted())
            m_terminal.Interrupt();
    }

    void Draw() {
        const int filled = BarWidth * (m_position - m_low) / (m_high - m_low);
        m_terminal.ShowBar(QStringLiteral("[%1%2] %3 %4")
                               .arg(QString(filled, u'#'), QString(BarWidth - filled, u'.'),
                                    m_phase.isEmpty() ? m_title : m_phase, m_detail));
    }

    CTerminal& m_terminal;
    CInterrupts m_interrupts;
    QString m_title;
    QString m_phase;
    QString m_detail;
    bool m_hasCancel;
    int m_low = 0;
    int m_high = 1;
    int m_position = 0;
};

int Columns() {
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : DefaultColumns;
}

} // namespace

CTerminal::CTerminal() : m_use(MessageDoor(), this), m_isTerminal(isatty(STDERR_FILENO) != 0) {}

CTerminal::~CTerminal() = default;

Message::Answer CTerminal::Show(const Message& message) {
    HideBar();
    if (message.icon == Message::Icon::Error)
        ++m_errors;
    std::fflush(stdout);
    for (const QString& line : {message.text, message.detail})
        if (!line.isEmpty())
            std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    return message.buttons == Message::Buttons::YesNo ? Message::Answer::No : Message::Answer::Ok;
}

std::unique_ptr<IProgress> CTerminal::Open(const QString& title, bool showCancel) {
    return std::make_unique<TerminalWindow>(*this, title, showCancel);
}

void CTerminal::Interrupt() {
    m_interrupted = true;
    throw Interrupted();
}

void CTerminal::ShowBar(const QString& line) {
    if (!m_isTerminal || (line.isEmpty() && !m_barShown))
        return;
    m_barShown = !line.isEmpty();
    // A line that reaches the last column would wrap and stay behind.
    std::fprintf(stderr, "\r\x1b[K%s", line.left(Columns() - 1).toUtf8().constData());
}

void PrintLine(const QString& line) {
    std::fprintf(stdout, "%s\n", line.toUtf8().constData());
}

void FlushOutput() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw Failure(QStringLiteral("cannot write the result"), LastError());
}
