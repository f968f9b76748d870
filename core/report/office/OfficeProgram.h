#pragma once

#include <QString>

/// The office that writes the reports and opens them: the program that the environment variable KUVEL_SOFFICE names, or
/// else the installed one. Empty when there is none.
QString FindOffice();
