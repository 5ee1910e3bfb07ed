#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// A connection that carries bytes both ways: a socket, a serial port. Its failures are TarnErrors whose
/// description names the connection and tells what happened; after one it can be closed and opened again.
class ByteStream {
 public:
  virtual ~ByteStream() = default;
  /// Waits a few seconds at most.
  virtual void open() = 0;
  virtual void close() = 0;
  /// Hands all bytes over, waiting a few seconds at most.
  virtual void write(std::span<const std::uint8_t> bytes) = 0;
  /// Waits until something came and gives how many bytes of `into` were filled; 0 when nothing came before
  /// `deadline`. What is there already is taken even when it is over.
  virtual std::size_t read(std::span<std::uint8_t> into, Moment deadline) = 0;
  /// Bits a second with which a serial line is opened; 0 where there is no such rate, or it means nothing.
  virtual int rate() const { return 0; }
  /// Goes on at another rate until it is closed; at the one before, and false, when the line has no such
  /// rate.
  virtual bool setRate(int bitsPerSecond) {
    static_cast<void>(bitsPerSecond);
    return false;
  }

  /// Called at least every 20 ms while the connection waits. It may do anything but use the connection.
  void setIdleHook(std::function<void()> hook) { idleHook_ = std::move(hook); }

 protected:
  void idle() const {
    if (idleHook_) idleHook_();
  }

 private:
  std::function<void()> idleHook_;
};

}  // namespace tarnlog::host
