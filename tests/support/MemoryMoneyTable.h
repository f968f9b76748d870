#pragma once

#include "core/import/money/MoneyTable.h"

#include <functional>
#include <map>
#include <string>

/// What Money's component would show of one table: columns, and rows of values.
struct MemoryTable {
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
};

/// A component of the test's own in place of Money's, while it lives. Tables are known by their file name.
class MemoryMoney {
public:
    MemoryMoney();
    MemoryMoney(const MemoryMoney&) = delete;
    MemoryMoney& operator=(const MemoryMoney&) = delete;

    std::map<QString, MemoryTable> tables;
    /// How many objects can be made from now on; negative is any number.
    int objects = -1;
    /// What the system says about an object that cannot be made.
    QString refusal;
    /// Run before each field is read: file name, column.
    std::function<void(const QString&, std::string_view)> onRead;
    /// Each call that opens, orders or seeks: "SKSEZDOK.DAT index CDokladu".
    std::vector<std::string> calls;

private:
    DoorUse<MoneyTableFactory> m_use;
};
