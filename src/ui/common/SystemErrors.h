#pragma once

#include <QString>
#include <initializer_list>

namespace tarnlog {

/// Whether a failure's text contains what the system says of one of these errors (`errno`), in the user's
/// language.
bool tellsOf(const QString& failure, std::initializer_list<int> errors);

}  // namespace tarnlog
