#pragma once

#include "VYRExport.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMath3x3Matrix.h"
#include "VYRMathVector2D.h"

class VYRI2DGStream;

// The kinds of elementary transform; the values are part of the byte stream.
enum VYRPrintTransformType : int {
  VYRPrintTransformMatrix = 0,       // a VYRMath2x2Matrix
  VYRPrintTransformTranslation = 1,  // a VYRMathVector2D
  VYRPrintTransformRotation = 2,     // float radians
  VYRPrintTransformScaleX = 3,       // double factor
  VYRPrintTransformScaleY = 4,       // double factor
  VYRPrintTransformSkewX = 5,        // float radians
  VYRPrintTransformSkewY = 6,        // float radians
};

// An element's transform list as written: elementary transforms in document
// order, each kept with its own parameters. The type table lists the kinds;
// the k-th parameter of a kind belongs to the k-th entry of that kind.
// Results are 1 for success and -1 for failure.
class VYR_EXPORT VYRPrtTransformAttributes {
 public:
  VYRPrtTransformAttributes() = default;
  VYRPrtTransformAttributes(const VYRPrtTransformAttributes& i_other);
  VYRPrtTransformAttributes& operator=(const VYRPrtTransformAttributes& i_other);
  ~VYRPrtTransformAttributes();

  // Same entries with the same parameters.
  bool operator==(const VYRPrtTransformAttributes& i_other) const;
  bool operator!=(const VYRPrtTransformAttributes& i_other) const { return !(*this == i_other); }

  int AddMatrix(const VYRMath2x2Matrix& i_matrix);
  int AddTranslation(const VYRMathVector2D& i_translation);
  int AddRotation(float i_angle);
  int AddScaleX(double i_factor);
  int AddScaleY(double i_factor);
  int AddSkewX(float i_angle);
  int AddSkewY(float i_angle);
  // Appends every entry of the other list, in its order.
  int AddTransformAttributes(const VYRPrtTransformAttributes& i_other);

  // The parameter of the last entry of the kind at or before position
  // i_index of the type table; -1 and the output untouched when there is none.
  int GetMatrix(unsigned int i_index, VYRMath2x2Matrix& o_matrix) const;
  int GetTranslation(unsigned int i_index, VYRMathVector2D& o_translation) const;
  int GetRotation(unsigned int i_index, float& o_angle) const;
  int GetScaleX(unsigned int i_index, double& o_factor) const;
  int GetScaleY(unsigned int i_index, double& o_factor) const;
  int GetSkewX(unsigned int i_index, float& o_angle) const;
  int GetSkewY(unsigned int i_index, float& o_angle) const;

  // The entry count and the type table itself (not a copy).
  int GetTransformTab(unsigned int& o_count, VYRPrintTransformType*& o_paTypes) const;
  // The composed matrix, the first entry outermost; 0 (identity) for an empty list.
  int GetTransformationMatrix(VYRMath3x3Matrix& o_matrix) const;

  void Stream(VYRI2DGStream* ipStream);
  void Unstream(VYRI2DGStream* ipStream);

 private:
  // One entry with its parameter, or the kind's neutral value when it has none.
  struct Entry {
    VYRPrintTransformType type = VYRPrintTransformMatrix;
    VYRMath2x2Matrix matrix;
    VYRMathVector2D translation;
    double factor = 1.0;
    float angle = 0.0f;
  };
  Entry GetEntry(unsigned int i_index) const;
  int AddEntry(const Entry& i_entry);
  int AddTransform(const VYRPrintTransformType& i_type);
  void CopyFrom(const VYRPrtTransformAttributes& i_other);
  bool ReadLists(VYRI2DGStream* ipStream);
  void Clear();

  VYRPrintTransformType* _paTransformTab = nullptr;
  unsigned int _transformCount = 0;
  VYRMath2x2Matrix* _paMatrices = nullptr;
  unsigned int _matrixCount = 0;
  double* _paScaleX = nullptr;
  unsigned int _scaleXCount = 0;
  double* _paScaleY = nullptr;
  unsigned int _scaleYCount = 0;
  float* _paRotations = nullptr;
  unsigned int _rotationCount = 0;
  float* _paSkewX = nullptr;
  unsigned int _skewXCount = 0;
  float* _paSkewY = nullptr;
  unsigned int _skewYCount = 0;
  VYRMathVector2D* _paTranslations = nullptr;
  unsigned int _translationCount = 0;
};
