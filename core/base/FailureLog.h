#pragma once

#include <QLoggingCategory>

#include <string>
#include <string_view>

/// Each ComError as it is raised: operation, code, and the statement or file concerned without a record's content.
/// Silent until `StartFailureLog` has found a file for it.
Q_DECLARE_LOGGING_CATEGORY(FailureLog)

/// Appends the category's lines to the file that the environment variable KUVEL_LOG names; nothing without it. Lines
/// may come from any thread.
void StartFailureLog();

/// The text with a "?" for each literal: texts, dates and numbers.
std::string WithoutLiterals(std::string_view text);
