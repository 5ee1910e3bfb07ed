#pragma once

#include <chrono>

/// Times of the standards, under their names there.
namespace tarnlog::host::timing {

/// An ECU begins to answer within P2 (ISO 14229-2, ISO 15765-4) ...
inline constexpr std::chrono::milliseconds kP2{50};
/// ... and after "response pending" within P2*.
inline constexpr std::chrono::milliseconds kP2Star{5000};
/// An ECU that hears nothing for S3 falls back to its default session (ISO 14229-2, ISO 14230-2).
inline constexpr std::chrono::milliseconds kS3{5000};
/// A flow control follows its frame within N_Bs, and a consecutive frame the one before within N_Cr (ISO
/// 15765-2).
inline constexpr std::chrono::milliseconds kNBs{1000};
inline constexpr std::chrono::milliseconds kNCr{1000};

}  // namespace tarnlog::host::timing
