#pragma once

#include <gtest/gtest.h>

#include "VYRRasterPixelLanes.h"

// A test run twice: with the raster layer's AVX2 routines (where the
// processor has them) and with the SSE2 ones, which machines without AVX2
// take and which would otherwise only run on a row's last pixels here.
class RasterInstructionSets : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
#if defined(VYR_RASTER_AVX2)
    _enabled = VYRRasterAvx2Enabled();
    if (GetParam() && !_enabled) GTEST_SKIP() << "the processor has no AVX2";
    VYRRasterAvx2Enabled() = GetParam();
#else
    if (GetParam()) GTEST_SKIP() << "no AVX2 routines in this build";
#endif
  }
  void TearDown() override {
#if defined(VYR_RASTER_AVX2)
    VYRRasterAvx2Enabled() = _enabled;
#endif
  }

 private:
  bool _enabled = false;
};

inline std::string InstructionSetName(const ::testing::TestParamInfo<bool>& i_info) {
  return i_info.param ? "Avx2" : "Sse2";
}
