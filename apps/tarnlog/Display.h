#pragma once

namespace tarnlog {

/// Whether windows can be shown. The toolkit ends the process when they cannot, so a child is sent ahead.
/// Asked before the toolkit is used; the answer is kept.
bool displayUsable();

}  // namespace tarnlog
