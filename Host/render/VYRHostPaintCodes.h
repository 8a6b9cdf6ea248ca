#pragma once

// What paints a shape, as the host's importer writes it into the fill style
// and stroke mode fields of the model and the renderer reads it back. The
// zero values are those of a new shape, which then paints as SVG's initial
// values do: a black fill and no stroke.

// Fill styles.
constexpr int kHostFillColor = 0;     // the colour at the fill colour index
constexpr int kHostFillNone = 1;
constexpr int kHostFillGradient = 2;  // the fill attributes' gradient record

// Stroke modes.
constexpr int kHostStrokeNone = 0;
constexpr int kHostStrokeColor = 1;     // the colour at the stroke colour index
constexpr int kHostStrokeGradient = 2;  // the stroke attributes' gradient record
