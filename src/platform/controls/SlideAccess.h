#pragma once

namespace tarnlog {

/// Lets assistive technology read the value, the ends and the text of every CWSlide. Once is enough.
void installSlideAccess();

}  // namespace tarnlog
