#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "apps/tarnlog/CarConnection.h"
#include "host/vehicle/Vehicle.h"

class QWidget;

namespace tarnlog {

class OpeningProgress;
class TarnMain;
class WhenIdle;

/// What whoever opens a vehicle has to give to its link.
struct LinkHooks {
  /// To be run where the car is waited for. It raises OpeningCancelled while the vehicle is being opened.
  host::Link::IdleHook whileWaiting;
  /// Whether somebody waits for the end of what this vehicle's link does.
  host::Link::StopQuestion stopAsked;
  /// Told what is done while the vehicle is being opened.
  host::PhaseHook phase;
};

/// The vehicle that the window records from, and its exchange for another one. Until the other one is open
/// everything goes on as it was, a recording included; when it cannot be opened nothing has changed, but
/// for this: a link that both need is let go before.
class VehicleSlot : public QObject {
  Q_OBJECT
 public:
  using Vehicle = std::shared_ptr<host::OpenedVehicle>;
  /// Opens a vehicle, or raises.
  using Opener = std::function<Vehicle(const CarConnection&, const LinkHooks&)>;
  /// How it ended. Null: the vehicle is open; empty: the user cancelled it; else what went wrong.
  using Ended = std::function<void(const QString& failure)>;

  /// `usualLink` is that of vehicles whose connection names none. Recorder and window outlive it, or
  /// `letGoOfRecorder` is called.
  VehicleSlot(Opener opener, std::string usualLink, TarnMain& recorder, QWidget& window);
  ~VehicleSlot() override;

  /// Null while there is none.
  const host::OpenedVehicle* vehicle() const { return vehicle_.get(); }
  const CarConnection& connection() const { return connection_; }
  /// How the vehicle is reached; empty: it is simulated.
  std::string link() const;

  /// Opens another vehicle and gives it to the recorder. The user is asked about what would be lost; `ended`
  /// is not called when the user keeps it.
  void change(const CarConnection& connection, Ended ended);

  bool opening() const { return opening_ != nullptr; }
  /// A vehicle is being opened, or a request is under way.
  bool communicating() const;
  /// Runs what the user waits for as soon as that is over. A request that takes longer than a moment, as
  /// they do in an outage, is broken off. An action takes the place of one that still waits.
  void whenIdle(std::function<void()> action);
  /// Breaks off a change that is under way.
  void cancel();
  /// The recorder is about to go.
  void letGoOfRecorder() { recorder_ = nullptr; }

 signals:
  /// Something about the vehicle that people should know while they record.
  void noticed(const QString& subject, const QString& text);

 private:
  bool needsOurLink(const CarConnection& connection) const;
  std::string linkOf(const CarConnection& connection) const;
  void openAndReplace(const CarConnection& connection, const Ended& ended);
  Vehicle open(const CarConnection& connection);
  bool endWanted() const;
  void replace(const Vehicle& vehicle, const CarConnection& connection, const Ended& ended);
  void endAcquisition(const std::function<void()>& then);

  Opener opener_;
  std::string usualLink_;
  TarnMain* recorder_;
  QWidget& window_;
  WhenIdle* whenIdle_;
  Vehicle vehicle_;
  CarConnection connection_;
  OpeningProgress* opening_ = nullptr;
  std::function<void()> afterAcquisition_;
  QElapsedTimer userWaits_;  ///< valid while an action waits
};

}  // namespace tarnlog
