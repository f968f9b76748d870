#include "core/base/ComError.h"

#include "core/base/FailureLog.h"

#include <utility>

ComError::ComError(std::string operation, std::string text, std::uint32_t code, const QString& description)
    : m_operation(std::move(operation)), m_text(std::move(text)), m_code(code), m_description(description),
      m_what(m_operation + ": " + m_description.toStdString() + QString::asprintf(" (0x%08X)", m_code).toStdString() +
             (m_text.empty() ? "" : ": " + m_text)) {
    // The description is left out: it may quote what a record holds.
    qCWarning(FailureLog, "%s (0x%08X): %s", m_operation.c_str(), m_code, WithoutLiterals(m_text).c_str());
}
