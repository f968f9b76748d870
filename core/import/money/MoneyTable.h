#pragma once

#include "core/base/Door.h"
#include "core/base/Variant.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

/// One table of Money S3, with the operations of Money's own database component. Every member raises ComError; those
/// that need an open table raise when there is none.
class IMoneyTable {
public:
    /// What a seek answers; any other number is a key that was not found, which leaves the current record.
    static constexpr int Found = 7;

    virtual ~IMoneyTable() = default;
    /// False when the file is no table that can be read; the table is then closed.
    virtual bool Open(const QString& path) = 0;
    virtual void Close() = 0;
    virtual std::int32_t RecordCount() = 0;
    virtual bool AtEnd() = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    /// Column names in any case. Raises UnreadableValue for what is no value of the column's type.
    virtual Variant FieldValue(std::string_view column) = 0;
    /// The number of the current record in the file, from 1, by which a person finds it there.
    virtual std::int64_t RecordNumber() = 0;
    /// By the current index; a key of fewer fields than the index has finds the first of those that begin with it.
    virtual int SeekKey(const Variant& key) = 0;
    virtual int SeekKeys(const std::vector<Variant>& keys) = 0;
    /// Field names joined by "+": the records then come in the order of these fields, from the first.
    virtual void SetCurrentIndex(std::string_view expression) = 0;
    /// What is called now and then while an index is made of many records; what it throws leaves the table without one.
    virtual void SetAlive(const std::function<void()>&) {}
};

using MoneyTablePtr = std::unique_ptr<IMoneyTable>;

/// Makes a closed table, or raises ComError when the component cannot be had.
using MoneyTableFactory = std::function<MoneyTablePtr()>;

/// The first one reads dBase tables.
Door<MoneyTableFactory>& MoneyTableDoor();

/// Whether a table object can be made, if need be after registering "mon2kdbe.dll".
bool MoneyComponentAvailable();

/// Opens the handle's table anew, making it when the handle is empty. False, after a message when `showMessages` is on,
/// when it cannot be made or opened; in the second case the handle is emptied. Raises ComError.
bool OpenMoneyTable(MoneyTablePtr& table, const QString& path, bool showMessages);
