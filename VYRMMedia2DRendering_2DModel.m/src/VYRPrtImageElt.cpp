#include "VYRPrtImageElt.h"

#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtImageElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtImageElt::VYRPrtImageElt(const VYRMathPoint2D& i_origin, double i_width, double i_height,
                               VYRPrtImageUnits i_units, const VYRMath2x2Matrix& i_matrix)
    : _origin(i_origin), _width(i_width), _height(i_height), _units(i_units), _matrix(i_matrix) {}

VYRPrtImageElt::VYRPrtImageElt(const VYRPrtImageElt& i_imageElt)
    : VYRPrtNodeTreeElt(i_imageElt),
      _origin(i_imageElt._origin),
      _width(i_imageElt._width),
      _height(i_imageElt._height),
      _units(i_imageElt._units),
      _matrix(i_imageElt._matrix),
      _pColourTable(CopyOfTable(i_imageElt._pColourTable)) {}

VYRPrtImageElt::~VYRPrtImageElt() { delete _pColourTable; }

VYRPrtColourTable* VYRPrtImageElt::CopyOfTable(const VYRPrtColourTable* ipColourTable) {
  if (!ipColourTable) return nullptr;
  return new (std::nothrow) VYRPrtColourTable(*ipColourTable);
}

VYRPrtImageElt& VYRPrtImageElt::operator=(const VYRPrtImageElt& i_imageElt) {
  if (!VYR_CHECK_CONDITION(this != &i_imageElt)) return *this;
  VYRPrtNodeTreeElt::operator=(i_imageElt);
  _origin = i_imageElt._origin;
  _width = i_imageElt._width;
  _height = i_imageElt._height;
  _units = i_imageElt._units;
  _matrix = i_imageElt._matrix;
  if (_pColourTable != i_imageElt._pColourTable) SetColorTable(CopyOfTable(i_imageElt._pColourTable));
  return *this;
}

void VYRPrtImageElt::GetSize(double& o_width, double& o_height) const {
  o_width = _width;
  o_height = _height;
}

void VYRPrtImageElt::SetSize(double i_width, double i_height) {
  _width = i_width;
  _height = i_height;
}

void VYRPrtImageElt::SetColorTable(VYRPrtColourTable* ipColourTable) {
  if (ipColourTable == _pColourTable) return;
  delete _pColourTable;
  _pColourTable = ipColourTable;
}

void VYRPrtImageElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _origin = VYRMathPoint2D();
  _width = _height = 0.0;
  _units = VYRPrtImageUnitsDefault;
  SetColorTable(nullptr);
  // The matrix is deliberately kept.
}

void VYRPrtImageElt::Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) {
  auto* pImage = VYRPrtEltFactory::Get().CreateElement<VYRPrtImageElt>();
  o_pGPElt = pImage;
  if (!VYR_CHECK_POINTER(o_pGPElt)) return;
  DuplicateChildrenInto(*pImage);
  pImage->_origin = _origin;
  pImage->_width = _width;
  pImage->_height = _height;
  pImage->_units = _units;
  pImage->_matrix = _matrix;
  pImage->SetColorTable(CopyOfTable(_pColourTable));
}

StreamType VYRPrtImageElt::GetStreamType() { return kStreamTypeImageElt; }

void VYRPrtImageElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_origin, ipStream);
  ipStream->StreamValue(_width);
  ipStream->StreamValue(_height);
  ipStream->StreamValue(static_cast<int>(_units));
  VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(_matrix, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(_pColourTable, ipStream);
}

void VYRPrtImageElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_origin, ipStream);
  ipStream->UnstreamValue(_width);
  ipStream->UnstreamValue(_height);
  int units = VYRPrtImageUnitsDefault;
  ipStream->UnstreamValue(units);
  _units = static_cast<VYRPrtImageUnits>(units);
  VYRPrtStreamUnstreamHelper::CreateVYRMath2x2MatrixFromStream(_matrix, ipStream);
  SetColorTable(VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(ipStream));
}
