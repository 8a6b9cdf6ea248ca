#pragma once

constexpr double VYRMathPi = 3.14159265358979323846;
constexpr double VYRMath2Pi = 2.0 * VYRMathPi;
constexpr float VYRMathPif = static_cast<float>(VYRMathPi);
constexpr float VYRMath2Pif = static_cast<float>(VYRMath2Pi);
