#include "apps/tarn-record/OfflineVehicle.h"

#include "apps/tarn-record/OpenVehicle.h"

namespace tarnlog::record {

OfflineVehicle::OfflineVehicle(const VehicleChoice& choice)
    : vehicle_(openVehicle(choice.path, files_, clock_, {}, choice.link)),
      session_(BuildSessionDocument(vehicle_->session())) {}

}  // namespace tarnlog::record
