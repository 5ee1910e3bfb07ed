#pragma once

namespace tarnlog {

/// Lets assistive technology read every TextLabel as the text that it shows. Once is enough.
void installLabelAccess();

}  // namespace tarnlog
