#include "ctl/Failure.h"

#include <cstring>

Failure::Failure(const QString& reason, int errorNumber)
    : Failure(reason + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errorNumber))) {}
