#pragma once

#include <QString>

#include <cstdint>
#include <functional>

class CDataStore;

/// Looks through the whole open database, in one state of it: damage of the file, values that the program does not
/// write (other storage classes, codes outside their lists, unreadable dates, missing weights), and rows that refer to
/// nothing. Each finding is one line to `print`, as is each note ("note: …"), which is no fault. Answers the number of
/// findings. Raises ComError.
std::int64_t CheckDatabase(CDataStore& store, const std::function<void(const QString&)>& print);
