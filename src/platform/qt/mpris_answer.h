// What a message of the bus to the player comes to: a request, a value, or an error.
#pragma once

#include <QDBusMessage>
#include <QVariant>

#include "platform/media_bus.h"

/// Carries out the message and gives the answer to it. Invalid for a message that is the toolkit's
/// to answer.
[[nodiscard]] QDBusMessage AnswerTo(const QDBusMessage& message, MediaRequests& requests);

/// The present value of a property of the player; invalid if it has no such property.
[[nodiscard]] QVariant PlayerProperty(const QString& name, MediaRequests& requests);
