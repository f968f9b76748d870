#pragma once

#include <QString>

/// The folder of this program's executable, with a trailing separator, where the empty database and the templates lie.
QString DeliveryFolder();

/// Copies a file to a name that nothing has yet: it is whole there, or not there at all. Raises Failure.
void PlaceFile(const QString& source, const QString& target);

/// Puts the empty database into the program folder, which must have none, and answers its path. Raises Failure.
QString PlaceEmptyDatabase();

/// Raises Failure when the program folder has a database already, or the journal of one that was taken away (which
/// would be played into the new one).
void RequireNoDatabase();

/// Makes the program folder if it is missing and puts the templates that it lacks into it. Raises Failure.
void PlaceTemplates();
