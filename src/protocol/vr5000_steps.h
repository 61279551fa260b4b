// The VR-5000's tuning steps: per mode group, the step options of the main window, each a
// step code that rides on the mode command (P2) and a step size in 10 Hz.
#pragma once

#include "link/core.h"

#include <array>

namespace veldor {

struct StepOption {
    uint8_t code;
    int32_t size;
};
inline constexpr std::array<StepOption, 5> kStepsLsbUsb{
    {{0x21, 2}, {0x02, 10}, {0x42, 50}, {0x03, 100}, {0x43, 500}}};
inline constexpr std::array<StepOption, 9> kStepsAm{{{0x03, 100},
                                                     {0x43, 500},
                                                     {0x63, 900},
                                                     {0x04, 1000},
                                                     {0x24, 2000},
                                                     {0x34, 2500},
                                                     {0x44, 5000},
                                                     {0x05, 10000},
                                                     {0x45, 50000}}};
inline constexpr std::array<StepOption, 9> kStepsFmn{{{0x43, 500},
                                                      {0x53, 625},
                                                      {0x04, 1000},
                                                      {0x14, 1250},
                                                      {0x24, 2000},
                                                      {0x34, 2500},
                                                      {0x44, 5000},
                                                      {0x05, 10000},
                                                      {0x45, 50000}}};
inline constexpr std::array<StepOption, 4> kStepsWfm{
    {{0x04, 1000}, {0x44, 5000}, {0x05, 10000}, {0x45, 50000}}};

// Shows the frame of step options that belongs to the mode in txtMode, and marks the mode's
// stored step; VR5000Step follows it.
void ShowVR5000Steps(Core& c);

}  // namespace veldor
