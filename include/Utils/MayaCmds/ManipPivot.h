#pragma once

// The move manipulator's orientation, in degrees.
bool manipPivotOrientation(double orientation[3]);
bool setManipPivotOrientation(const double orientation[3]);
