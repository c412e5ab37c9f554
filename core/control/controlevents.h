#pragma once

#include "core/base/event.h"
#include "core/control/propertyvalues.h"

namespace pixmo {

/// What the control tells its host: each event of its interface. Text and numbers are passed on; what a host
/// may change is a reference.
struct ControlEvents {
#define PIXMO_IN(type, name) const interface_type::type&
#define PIXMO_INOUT(type, name) interface_type::type&
#define PIXMO_WITHOUT_BRACKETS(...) __VA_ARGS__
#define PIXMO_EVENT(number, name, parameters, help) Event<PIXMO_WITHOUT_BRACKETS parameters> name;
#include "core/control/interface.inc"
#undef PIXMO_WITHOUT_BRACKETS
#undef PIXMO_INOUT
#undef PIXMO_IN
};

} // namespace pixmo
