#pragma once

#include <QString>

class CDataStore;
class CProgressDoor;
class QWidget;

/// Asks for the period and the company's data, makes the report and opens it in front of the user.
void RunReportCommand(CDataStore& store, CProgressDoor& progress, QWidget* parent);

/// Opens the workbook in the user's own office, which stays when this program ends. False, after a warning with the
/// workbook's name, when nothing could be started.
bool OpenWorkbook(const QString& path);
