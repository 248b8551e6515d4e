// What a drawn thing is, as readers tell it to those who choose colours.
#pragma once

#include <figk/Setting.h>

namespace fighost {

/// What a drawn thing is, whatever its colour.
enum class Role {
    WIRE,
    BUS,
    BODY,
    PIN,
    PIN_NAME,
    PIN_NUMBER,
    REFERENCE,
    VALUE,
    FIELD,
    LABEL,
    GLOBAL_LABEL,
    HIERARCHICAL_LABEL,
    FLAG,
    NO_CONNECT,
    NOTE,
    SHEET,
    SHEET_NAME,
    SHEET_FILE,
    SHEET_PIN,
    RULE_AREA,
    DNP,
    FRAME,
    MISSING,
    COUNT  ///< no role
};

/// The key under which a record's settings hold its role: a float with the number of the role. It
/// is a key of this host's own, which neither kernel nor library reads.
///
/// Beside it stands the record's `KEY_COLOR`, at `LEVEL_DEFAULT` when it is only what a role looks
/// like on white, and at `LEVEL_BASE` when the file itself chose it.
inline constexpr figk::Setting::Key KEY_ROLE = static_cast<figk::Setting::Key>(1000);

}  // namespace fighost
