#include "apps/tarnlog/LinkAdvice.h"

#include <cerrno>
#include <string_view>

#include "ui/common/SystemErrors.h"

namespace tarnlog {

namespace {

bool namesDevice(std::string_view link) { return link.find("/dev/") != std::string_view::npos; }

}  // namespace

QString LinkAdvice::on(const QString& failure, const CarConnection& connection) {
  const bool device = namesDevice(connection.link) && failure.contains("/dev/");
  if (tellsOf(failure, {EACCES, EPERM}) || failure.contains("may not be opened"))
    return device ? tr("Serial ports belong to a group: \"sudo adduser $USER dialout\", then log in again.")
                  : tr("You may not read this file: ask its owner, or open a copy of it.");
  if (tellsOf(failure, {ENOENT, ENODEV, ENXIO})) return device ? onAdapter() : onFile();
  if (tellsOf(failure, {EBUSY})) return tr("Another program uses the adapter: close that one.");
  if (tellsOf(failure, {ECONNREFUSED, EHOSTUNREACH, ENETUNREACH, ETIMEDOUT, EHOSTDOWN}) ||
      failure.contains("does not know this name"))
    return onNetwork();
  if (failure.startsWith("link ")) return tr("The list of ways to a car shows how each link is written.");
  return {};
}

QString LinkAdvice::onFile() {
  return tr("It may have been moved, renamed or deleted: choose the file again.");
}

QString LinkAdvice::onAdapter() {
  return tr(
      "Plug the adapter in, and look at the name of its port: \"ls /dev/tty*\" lists them, and so does "
      "\"Connect to a car...\". A Bluetooth adapter needs \"sudo rfcomm bind 0 ADDRESS\" first.");
}

QString LinkAdvice::onNetwork() {
  return tr(
      "Is this computer in the adapter's Wi-Fi, or the cable plugged in? Are address and port right, and is "
      "the ignition on?");
}

}  // namespace tarnlog
