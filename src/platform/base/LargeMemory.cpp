#include "platform/base/LargeMemory.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace tarnlog {

namespace {

constexpr std::size_t kPage = 2 * 1024 * 1024;

std::shared_ptr<std::byte[]> newPage() {
  auto* const bytes = static_cast<std::byte*>(std::aligned_alloc(kPage, kPage));
  if (bytes == nullptr) throw std::bad_alloc();
  // A system without such pages gives others.
  ::madvise(bytes, kPage, MADV_HUGEPAGE);
  return {bytes, [](std::byte* page) { std::free(page); }};
}

/// The page that is handed out.
struct Newest {
  std::shared_ptr<std::byte[]> page;
  std::size_t used = kPage;
};

}  // namespace

std::shared_ptr<std::byte[]> largeMemory(std::size_t bytes) {
  thread_local Newest newest;
  if (newest.used + bytes > kPage) newest = {newPage(), 0};
  std::shared_ptr<std::byte[]> piece(newest.page, newest.page.get() + newest.used);
  newest.used += bytes;
  return piece;
}

}  // namespace tarnlog
