#include "ctl/Failure.h"

Failure::Failure(const QString& reason, const std::error_code& error)
    : Failure(reason + QStringLiteral(": ") + QString::fromLocal8Bit(error.message())) {}
