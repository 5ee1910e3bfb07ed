#pragma once

#include <chrono>
#include <string>

#include "host/link/LinkClock.h"
#include "host/link/stream/ByteStream.h"

namespace tarnlog::host {

/// An open file descriptor of the system. Closes it when destroyed.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();
  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

/// Bytes through a non-blocking file descriptor, waiting on poll(2). Who derives says how it is opened.
class DescriptorStream : public ByteStream {
 public:
  /// `name` is for messages. The clock must outlive the stream and be the system's, as poll(2) waits by it.
  DescriptorStream(std::string name, LinkClock& clock) : name_(std::move(name)), clock_(clock) {}

  void close() override { descriptor_ = Descriptor(); }
  void write(std::span<const std::uint8_t> bytes) override;
  std::size_t read(std::span<std::uint8_t> into, Moment deadline) override;

 protected:
  static constexpr std::chrono::seconds kPatience{3};  ///< for opening and for writing

  /// One write to the system: the number of bytes taken, below 0 with errno set when it failed.
  virtual std::ptrdiff_t writeSome(std::span<const std::uint8_t> bytes);
  /// One read that does not wait, likewise; 0 when no byte will come any more.
  virtual std::ptrdiff_t readSome(std::span<std::uint8_t> into);
  void setDescriptor(Descriptor descriptor) { descriptor_ = std::move(descriptor); }
  int descriptor() const { return descriptor_.number(); }
  LinkClock& clock() const { return clock_; }
  /// Runs the idle hook when that is due within so long.
  void idleIfDue(std::chrono::milliseconds ahead = {});
  /// False when none of the poll(2) events came before the deadline.
  bool wait(short events, Moment deadline);
  /// Raises a TarnError: the connection's name and the text.
  [[noreturn]] void fail(const std::string& text) const;
  /// The same with the system's text for an error number.
  [[noreturn]] virtual void failWith(int error) const;

 private:
  std::ptrdiff_t takeSome(std::span<std::uint8_t> into);

  std::string name_;
  LinkClock& clock_;
  Descriptor descriptor_;
  Moment nextIdle_ = Moment::min();
};

}  // namespace tarnlog::host
