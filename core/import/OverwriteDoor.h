#pragma once

#include <QString>

#include <vector>

/// Asked about a record of an earlier import.
struct OverwriteQuestion {
    /// What the record holds, and what it would hold.
    struct Value {
        QString name;
        QString stored;
        QString incoming;
    };

    QString text;
    std::vector<Value> values;
};

/// The door through which an import asks whether a record that it brought in before is to be overwritten.
class IOverwriteDoor {
public:
    /// Stop ends the import as a cancel does.
    enum class Answer { Yes, No, YesToAll, NoToAll, Stop };

    virtual ~IOverwriteDoor() = default;
    /// Closing the question without an answer is No.
    virtual Answer Ask(const OverwriteQuestion& question) = 0;
};

/// A door for where nobody can be asked: No.
IOverwriteDoor& NobodyToAsk();
