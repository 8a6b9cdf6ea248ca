#pragma once

#include <cstdint>

// HRESULT-style status codes of file, XML and resource operations:
// 0 or any positive value is success, a negative value a failure.
using VYRStatus = long;

constexpr VYRStatus VYRMakeStatus(uint32_t i_code) { return static_cast<int32_t>(i_code); }

constexpr VYRStatus VYR_S_OK = 0;
constexpr VYRStatus VYR_S_FALSE = 1;
constexpr VYRStatus VYR_E_FAIL = VYRMakeStatus(0x80004005u);
constexpr VYRStatus VYR_E_INVALIDARG = VYRMakeStatus(0x80070057u);
constexpr VYRStatus VYR_E_OUTOFMEMORY = VYRMakeStatus(0x8007000Eu);
constexpr VYRStatus VYR_E_FILENOTFOUND = VYRMakeStatus(0x80070002u);
constexpr VYRStatus VYR_E_ACCESSDENIED = VYRMakeStatus(0x80070005u);

constexpr bool VYRSucceeded(VYRStatus i_status) { return i_status >= 0; }
constexpr bool VYRFailed(VYRStatus i_status) { return i_status < 0; }
