#pragma once

#include "tests/support/ProgramFolder.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

/// A disk that fails as a test wants it, under every database of this process that is opened while it lives.
class CFaultyDisk {
public:
    CFaultyDisk();
    ~CFaultyDisk();
    CFaultyDisk(const CFaultyDisk&) = delete;
    CFaultyDisk& operator=(const CFaultyDisk&) = delete;

    /// What a killed program would leave.
    struct Files {
        QByteArray database;
        QByteArray journal;
    };

    // From the call on; each replaces the one before.
    void FailWrite(int n);            // the n-th write or truncation, counted from 1
    void FillUpTo(std::int64_t free); // so many bytes may be added
    /// Remembers the files as they are before each write to them.
    void Remember();
    void Heal();

    int Writes() const;
    bool HasFailed() const;
    const std::vector<Files>& Remembered() const;
};

/// One operation on a program folder of its own, made anew for each fault.
class IFaultSubject {
public:
    virtual ~IFaultSubject() = default;
    virtual const ProgramFolder& Folder() const = 0;
    /// Carries it out. The disk is sound until it calls `arm`. Answers the number of units that it says it has written,
    /// or −1 when it says nothing.
    virtual std::int64_t Run(const std::function<void()>& arm) = 0;
    /// Messages shown, and whether one came while a transaction was open.
    virtual std::size_t Messages() const = 0;
};

struct FaultyOperation {
    std::string name;
    std::function<std::unique_ptr<IFaultSubject>()> make;
    /// Two columns: the name of what must be old or new as a whole, and what it holds. Empty for all tables as one.
    std::string units;
};

/// Sizes of free disk, in bytes.
std::vector<std::int64_t> DiskSizes(std::int64_t upTo = 200'000, std::int64_t step = 8'000);

// Each carries the operation out for every such fault, and expects that every unit is then old or new, that as many are
// new as it said, and that it showed one message when it failed.

/// Every disk that is too small, up to the first that is not.
void ExpectWholeOnAFullDisk(const FaultyOperation& operation, const std::vector<std::int64_t>& sizes = DiskSizes());
void ExpectWholeAfterEachFailedWrite(const FaultyOperation& operation);
void ExpectWholeAfterAKillAtEachWrite(const FaultyOperation& operation);
inline void ExpectWholeAfterAnyFault(const FaultyOperation& operation) {
    ExpectWholeOnAFullDisk(operation);
    ExpectWholeAfterEachFailedWrite(operation);
    ExpectWholeAfterAKillAtEachWrite(operation);
}
