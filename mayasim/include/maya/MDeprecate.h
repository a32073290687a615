#pragma once
// Marks the declarations Maya 2022 deprecates, so that using one warns here
// as it warns against the devkit.
#define OPENMAYA_DEPRECATED(version, message) __attribute__((deprecated(message)))
