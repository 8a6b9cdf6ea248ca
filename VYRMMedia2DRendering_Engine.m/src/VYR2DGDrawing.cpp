#include "VYR2DGDrawing.h"

#include "VYR2DGDefaultFont.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYR2DGDrawing, VYRBaseUnknown, "VYRMMedia2DRendering_Engine")

namespace {

constexpr float kDefaultTextHeight = 12.0f;

void StoreChannels(float* o_channels, float i_r, float i_g, float i_b, float i_a) {
  o_channels[0] = i_r;
  o_channels[1] = i_g;
  o_channels[2] = i_b;
  o_channels[3] = i_a;
}

float ByteToUnit(unsigned char i_value) { return static_cast<float>(i_value / 255.0); }

}  // namespace

VYR2DGDrawing::VYR2DGDrawing() {
  SetSharedDefaults_();
  _pFont = VYR2DGGetDefaultFont();
}

void VYR2DGDrawing::SetSharedDefaults_() {
  StoreChannels(_strokeColor, 0.0f, 0.0f, 0.0f, 0.0f);
  StoreChannels(_fillColor, 0.0f, 0.0f, 0.0f, 0.0f);
  _strokeMode = eEdgeModeColor;
  _fillMode = eFillModeColor;
  _pFont = nullptr;
  _textHeight = kDefaultTextHeight;
  _textWeight = eTextWeightNormal;
  _textStyleFlags = 0;
  _textAlign = eTextAlignLeft;
  _buildingClipPath = false;
  _drawingMask = false;
  _knockout = 0;
}

// After a reset text uses the typeface chosen by name until a font is set,
// hence no default font here, unlike at construction.
void VYR2DGDrawing::Reset() { SetSharedDefaults_(); }

void VYR2DGDrawing::SetBuildingClipPath(bool i_building) { _buildingClipPath = i_building; }
bool VYR2DGDrawing::BuildingClipPath() const { return _buildingClipPath; }
void VYR2DGDrawing::SetDrawingMask(bool i_drawingMask) { _drawingMask = i_drawingMask; }
bool VYR2DGDrawing::DrawingMask() const { return _drawingMask; }
void VYR2DGDrawing::SetKnockout(int i_knockout) { _knockout = i_knockout; }
int VYR2DGDrawing::Knockout() const { return _knockout; }

void VYR2DGDrawing::SetStrokeColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a) {
  StoreChannels(_strokeColor, ByteToUnit(i_r), ByteToUnit(i_g), ByteToUnit(i_b), ByteToUnit(i_a));
}

void VYR2DGDrawing::SetStrokeColor(float i_r, float i_g, float i_b, float i_a) {
  StoreChannels(_strokeColor, i_r, i_g, i_b, i_a);
}

void VYR2DGDrawing::SetFillColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a) {
  StoreChannels(_fillColor, ByteToUnit(i_r), ByteToUnit(i_g), ByteToUnit(i_b), ByteToUnit(i_a));
}

void VYR2DGDrawing::SetFillColor(float i_r, float i_g, float i_b, float i_a) {
  StoreChannels(_fillColor, i_r, i_g, i_b, i_a);
}

void VYR2DGDrawing::SetStrokeColorAlpha(unsigned char i_alpha) { _strokeColor[eAlpha] = ByteToUnit(i_alpha); }
void VYR2DGDrawing::SetStrokeColorAlpha(float i_alpha) { _strokeColor[eAlpha] = i_alpha; }
void VYR2DGDrawing::SetFillColorAlpha(unsigned char i_alpha) { _fillColor[eAlpha] = ByteToUnit(i_alpha); }
void VYR2DGDrawing::SetFillColorAlpha(float i_alpha) { _fillColor[eAlpha] = i_alpha; }

void VYR2DGDrawing::SetStrokeMode(VYRPrintEdgeMode i_mode) { _strokeMode = i_mode; }
void VYR2DGDrawing::SetFillMode(VYRPrintFillMode i_mode) { _fillMode = i_mode; }

void VYR2DGDrawing::SetFont(VYRFont* i_pFont) { _pFont = i_pFont; }

void VYR2DGDrawing::SetTextHeight(float i_height) { _textHeight = i_height; }
void VYR2DGDrawing::SetTextWeight(VYR2DGTextWeight i_weight) { _textWeight = i_weight; }
void VYR2DGDrawing::SetTextStyleFlags(int i_flags) { _textStyleFlags = i_flags; }
void VYR2DGDrawing::AddTextStyleFlags(int i_flags) { _textStyleFlags |= i_flags; }
void VYR2DGDrawing::RemoveTextStyleFlags(int i_flags) { _textStyleFlags &= ~i_flags; }
void VYR2DGDrawing::SetTextAlign(VYR2DGTextAlign i_align) { _textAlign = i_align; }

void VYR2DGDrawing::GetStrokeColor(float& o_r, float& o_g, float& o_b, float& o_a) const {
  o_r = _strokeColor[eRed];
  o_g = _strokeColor[eGreen];
  o_b = _strokeColor[eBlue];
  o_a = _strokeColor[eAlpha];
}

void VYR2DGDrawing::GetFillColor(float& o_r, float& o_g, float& o_b, float& o_a) const {
  o_r = _fillColor[eRed];
  o_g = _fillColor[eGreen];
  o_b = _fillColor[eBlue];
  o_a = _fillColor[eAlpha];
}
