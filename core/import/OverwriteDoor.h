#pragma once

#include <QString>

/// The door through which an import asks whether a record that it brought in before is to be overwritten.
class IOverwriteDoor {
public:
    enum class Answer { Yes, No, YesToAll, NoToAll };

    virtual ~IOverwriteDoor() = default;
    /// Closing the question without an answer is No.
    virtual Answer Ask(const QString& question) = 0;
};

/// A door for where nobody can be asked: No.
IOverwriteDoor& NobodyToAsk();
