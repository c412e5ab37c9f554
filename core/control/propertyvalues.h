#pragma once

#include "core/platform/propertyvalue.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// The types of the interface's rows.
namespace interface_type {
using Boolean = bool;
using Integer = int16_t;
using Long = int32_t;
using PaperSize = int32_t;
using Text = std::string;
using Colour = pixmo::Colour;
using Font = pixmo::Font;
} // namespace interface_type

/// What the control stores of its plain properties, a member for each. The others live where they act: in the
/// session, the timers and the log. LogFileName is as this control was told; the log itself is shared by all.
struct PropertyValues {
#define PIXMO_PROPERTY(number, name, type, access, help) interface_type::type name{};
#define PIXMO_LIVE_PROPERTY(number, name, type, access, help)
#include "core/control/interface.inc"
};

} // namespace pixmo
