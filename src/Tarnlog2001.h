#pragma once

/// All that a program includes which records with Core: configuration, acquisition, files, clocks, data of
/// its own, and the sinks that hear of each answer. Programs with a window include ui/main/TarnMain.h
/// besides, and those that take vehicles from descriptions host/vehicle/Vehicle.h.
#include "acquisition/SampleSink.h"               // IWYU pragma: export
#include "acquisition/SilentAcqScreen.h"          // IWYU pragma: export
#include "acquisition/TarnAcq.h"                  // IWYU pragma: export
#include "catalogue/SessionDocument.h"            // IWYU pragma: export
#include "config/AddDatum.h"                      // IWYU pragma: export
#include "config/SessionLoad.h"                   // IWYU pragma: export
#include "config/oTarnParameters.h"               // IWYU pragma: export
#include "platform/base/TarnError.h"              // IWYU pragma: export
#include "platform/ferrox3/OwnSession.h"          // IWYU pragma: export
#include "platform/files/SystemFileSystem.h"      // IWYU pragma: export
#include "platform/settings/FileSettingsStore.h"  // IWYU pragma: export
#include "platform/text/UserLocale.h"             // IWYU pragma: export
#include "platform/time/RunLoop.h"                // IWYU pragma: export
#include "platform/time/SystemClock.h"            // IWYU pragma: export
#include "samples/Measurement.h"                  // IWYU pragma: export
