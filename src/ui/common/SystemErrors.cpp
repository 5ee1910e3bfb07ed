#include "ui/common/SystemErrors.h"

#include <algorithm>
#include <system_error>

namespace tarnlog {

bool tellsOf(const QString& failure, std::initializer_list<int> errors) {
  return std::any_of(errors.begin(), errors.end(), [&](int error) {
    return failure.contains(QString::fromLocal8Bit(std::generic_category().message(error).c_str()));
  });
}

}  // namespace tarnlog
