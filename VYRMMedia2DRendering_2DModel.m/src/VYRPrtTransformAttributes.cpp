#include "VYRPrtTransformAttributes.h"

#include <climits>
#include <cmath>
#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRStreamRecord.h"

namespace {

// Arrays grow by exactly one element per add: lists are short, and one tight
// block per kind is what the object holds.
template <class T>
bool AppendOne(T*& io_paArray, unsigned int& io_count, const T& i_value) {
  T* paNewArray = new (std::nothrow) T[io_count + 1];
  if (!VYR_CHECK_POINTER(paNewArray)) return false;
  for (unsigned int i = 0; i < io_count; ++i) paNewArray[i] = io_paArray[i];
  paNewArray[io_count] = i_value;
  delete[] io_paArray;
  io_paArray = paNewArray;
  ++io_count;
  return true;
}

// A new array of i_count copies of i_fill; null for a count of 0.
template <class T>
bool NewArray(T*& o_paArray, unsigned int i_count, const T& i_fill = T()) {
  o_paArray = nullptr;
  if (i_count == 0) return true;
  o_paArray = new (std::nothrow) T[i_count];
  if (!VYR_CHECK_POINTER(o_paArray)) return false;
  for (unsigned int i = 0; i < i_count; ++i) o_paArray[i] = i_fill;
  return true;
}

template <class T>
bool CopyArray(T*& o_paArray, unsigned int& o_count, const T* i_paArray, unsigned int i_count) {
  if (!NewArray(o_paArray, i_count)) return false;
  for (unsigned int i = 0; i < i_count; ++i) o_paArray[i] = i_paArray[i];
  o_count = i_count;
  return true;
}

template <class T>
void FreeArray(T*& io_paArray, unsigned int& io_count) {
  delete[] io_paArray;
  io_paArray = nullptr;
  io_count = 0;
}

template <class T>
bool SameArrays(const T* i_paFirst, unsigned int i_firstCount, const T* i_paSecond, unsigned int i_secondCount) {
  if (i_firstCount != i_secondCount) return false;
  for (unsigned int i = 0; i < i_firstCount; ++i)
    if (!(i_paFirst[i] == i_paSecond[i])) return false;
  return true;
}

// The parameter of the last entry of kind i_kind at or before position i_index.
template <class T>
int GetParameter(const VYRPrintTransformType* i_paTypes, unsigned int i_typeCount, VYRPrintTransformType i_kind,
                 unsigned int i_index, const T* i_paParameters, unsigned int i_parameterCount, T& o_value) {
  if (!i_paTypes || i_typeCount == 0 || !i_paParameters || i_parameterCount == 0 || i_index >= i_typeCount) {
    return -1;
  }
  unsigned int kindCount = 0;
  for (unsigned int i = 0; i <= i_index; ++i)
    if (i_paTypes[i] == i_kind) ++kindCount;
  if (kindCount - 1 >= i_parameterCount) return -1;  // also when there is none (wraps)
  o_value = i_paParameters[kindCount - 1];
  return 1;
}

// Reads a count that sizes an array, refusing one the stream cannot hold or
// that exceeds the limit; a refusal reports and gives false.
bool CheckCount(VYRI2DGStream* ipStream, int i_count, long long i_bytesPerItem, long long i_limit,
                unsigned int& o_count) {
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(i_count, i_bytesPerItem) && i_count <= i_limit)) return false;
  o_count = static_cast<unsigned int>(i_count);
  return true;
}

// A list is most often empty: that case is read in line, the others checked in CheckCount.
inline bool ReadCount(VYRI2DGStream* ipStream, long long i_bytesPerItem, long long i_limit, unsigned int& o_count) {
  int count = 0;
  ipStream->UnstreamValue(count);
  o_count = 0;
  return count == 0 || CheckCount(ipStream, count, i_bytesPerItem, i_limit, o_count);
}

template <class T>
bool ReadValues(VYRI2DGStream* ipStream, T*& o_paArray, unsigned int& o_count, long long i_limit) {
  static_assert(kIsStreamValue<T>, "the values come in as they are held");
  unsigned int count = 0;
  if (!ReadCount(ipStream, sizeof(T), i_limit, count) || !NewArray(o_paArray, count)) return false;
  ipStream->UnstreamBytes(o_paArray, static_cast<int>(count * sizeof(T)));
  o_count = count;
  return true;
}

template <class T>
void WriteValues(VYRI2DGStream* ipStream, const T* i_paArray, unsigned int i_count) {
  static_assert(kIsStreamValue<T>, "the values go out as they are held");
  ipStream->StreamValue(static_cast<int>(i_count));
  ipStream->StreamBytes(i_paArray, static_cast<int>(i_count * sizeof(T)));
}

}  // namespace

VYRPrtTransformAttributes::VYRPrtTransformAttributes(const VYRPrtTransformAttributes& i_other) { CopyFrom(i_other); }

VYRPrtTransformAttributes& VYRPrtTransformAttributes::operator=(const VYRPrtTransformAttributes& i_other) {
  if (this != &i_other) {
    Clear();
    CopyFrom(i_other);
  }
  return *this;
}

VYRPrtTransformAttributes::~VYRPrtTransformAttributes() { Clear(); }

void VYRPrtTransformAttributes::Clear() {
  FreeArray(_paTransformTab, _transformCount);
  FreeArray(_paMatrices, _matrixCount);
  FreeArray(_paScaleX, _scaleXCount);
  FreeArray(_paScaleY, _scaleYCount);
  FreeArray(_paRotations, _rotationCount);
  FreeArray(_paSkewX, _skewXCount);
  FreeArray(_paSkewY, _skewYCount);
  FreeArray(_paTranslations, _translationCount);
}

// Copies into an object without arrays; a copy that cannot be completed gives the identity.
void VYRPrtTransformAttributes::CopyFrom(const VYRPrtTransformAttributes& i_other) {
  bool copied = CopyArray(_paTransformTab, _transformCount, i_other._paTransformTab, i_other._transformCount) &&
                CopyArray(_paMatrices, _matrixCount, i_other._paMatrices, i_other._matrixCount) &&
                CopyArray(_paScaleX, _scaleXCount, i_other._paScaleX, i_other._scaleXCount) &&
                CopyArray(_paScaleY, _scaleYCount, i_other._paScaleY, i_other._scaleYCount) &&
                CopyArray(_paRotations, _rotationCount, i_other._paRotations, i_other._rotationCount) &&
                CopyArray(_paSkewX, _skewXCount, i_other._paSkewX, i_other._skewXCount) &&
                CopyArray(_paSkewY, _skewYCount, i_other._paSkewY, i_other._skewYCount) &&
                CopyArray(_paTranslations, _translationCount, i_other._paTranslations, i_other._translationCount);
  if (!copied) Clear();
}

bool VYRPrtTransformAttributes::operator==(const VYRPrtTransformAttributes& i_other) const {
  return SameArrays(_paTransformTab, _transformCount, i_other._paTransformTab, i_other._transformCount) &&
         SameArrays(_paMatrices, _matrixCount, i_other._paMatrices, i_other._matrixCount) &&
         SameArrays(_paScaleX, _scaleXCount, i_other._paScaleX, i_other._scaleXCount) &&
         SameArrays(_paScaleY, _scaleYCount, i_other._paScaleY, i_other._scaleYCount) &&
         SameArrays(_paRotations, _rotationCount, i_other._paRotations, i_other._rotationCount) &&
         SameArrays(_paSkewX, _skewXCount, i_other._paSkewX, i_other._skewXCount) &&
         SameArrays(_paSkewY, _skewYCount, i_other._paSkewY, i_other._skewYCount) &&
         SameArrays(_paTranslations, _translationCount, i_other._paTranslations, i_other._translationCount);
}

int VYRPrtTransformAttributes::AddTransform(const VYRPrintTransformType& i_type) {
  return AppendOne(_paTransformTab, _transformCount, i_type) ? 1 : -1;
}

// The parameter goes first: if the type table then cannot grow, the parameter stays appended.
int VYRPrtTransformAttributes::AddMatrix(const VYRMath2x2Matrix& i_matrix) {
  if (!AppendOne(_paMatrices, _matrixCount, i_matrix)) return -1;
  return AddTransform(VYRPrintTransformMatrix);
}

int VYRPrtTransformAttributes::AddTranslation(const VYRMathVector2D& i_translation) {
  if (!AppendOne(_paTranslations, _translationCount, i_translation)) return -1;
  return AddTransform(VYRPrintTransformTranslation);
}

int VYRPrtTransformAttributes::AddRotation(float i_angle) {
  if (!AppendOne(_paRotations, _rotationCount, i_angle)) return -1;
  return AddTransform(VYRPrintTransformRotation);
}

int VYRPrtTransformAttributes::AddScaleX(double i_factor) {
  if (!AppendOne(_paScaleX, _scaleXCount, i_factor)) return -1;
  return AddTransform(VYRPrintTransformScaleX);
}

int VYRPrtTransformAttributes::AddScaleY(double i_factor) {
  if (!AppendOne(_paScaleY, _scaleYCount, i_factor)) return -1;
  return AddTransform(VYRPrintTransformScaleY);
}

int VYRPrtTransformAttributes::AddSkewX(float i_angle) {
  if (!AppendOne(_paSkewX, _skewXCount, i_angle)) return -1;
  return AddTransform(VYRPrintTransformSkewX);
}

int VYRPrtTransformAttributes::AddSkewY(float i_angle) {
  if (!AppendOne(_paSkewY, _skewYCount, i_angle)) return -1;
  return AddTransform(VYRPrintTransformSkewY);
}

int VYRPrtTransformAttributes::AddEntry(const Entry& i_entry) {
  switch (i_entry.type) {
    case VYRPrintTransformMatrix: return AddMatrix(i_entry.matrix);
    case VYRPrintTransformTranslation: return AddTranslation(i_entry.translation);
    case VYRPrintTransformRotation: return AddRotation(i_entry.angle);
    case VYRPrintTransformScaleX: return AddScaleX(i_entry.factor);
    case VYRPrintTransformScaleY: return AddScaleY(i_entry.factor);
    case VYRPrintTransformSkewX: return AddSkewX(i_entry.angle);
    case VYRPrintTransformSkewY: return AddSkewY(i_entry.angle);
  }
  return AddTransform(i_entry.type);  // an unknown kind read from a stream travels as it is
}

int VYRPrtTransformAttributes::AddTransformAttributes(const VYRPrtTransformAttributes& i_other) {
  if (this == &i_other) {
    VYRPrtTransformAttributes copy(i_other);
    return AddTransformAttributes(copy);
  }
  for (unsigned int i = 0; i < i_other._transformCount; ++i)
    if (AddEntry(i_other.GetEntry(i)) < 0) return -1;
  return 1;
}

int VYRPrtTransformAttributes::GetMatrix(unsigned int i_index, VYRMath2x2Matrix& o_matrix) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformMatrix, i_index, _paMatrices, _matrixCount,
                      o_matrix);
}

int VYRPrtTransformAttributes::GetTranslation(unsigned int i_index, VYRMathVector2D& o_translation) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformTranslation, i_index, _paTranslations,
                      _translationCount, o_translation);
}

int VYRPrtTransformAttributes::GetRotation(unsigned int i_index, float& o_angle) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformRotation, i_index, _paRotations,
                      _rotationCount, o_angle);
}

int VYRPrtTransformAttributes::GetScaleX(unsigned int i_index, double& o_factor) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformScaleX, i_index, _paScaleX, _scaleXCount,
                      o_factor);
}

int VYRPrtTransformAttributes::GetScaleY(unsigned int i_index, double& o_factor) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformScaleY, i_index, _paScaleY, _scaleYCount,
                      o_factor);
}

int VYRPrtTransformAttributes::GetSkewX(unsigned int i_index, float& o_angle) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformSkewX, i_index, _paSkewX, _skewXCount,
                      o_angle);
}

int VYRPrtTransformAttributes::GetSkewY(unsigned int i_index, float& o_angle) const {
  return GetParameter(_paTransformTab, _transformCount, VYRPrintTransformSkewY, i_index, _paSkewY, _skewYCount,
                      o_angle);
}

int VYRPrtTransformAttributes::GetTransformTab(unsigned int& o_count, VYRPrintTransformType*& o_paTypes) const {
  o_count = _transformCount;
  o_paTypes = _paTransformTab;
  return 1;
}

VYRPrtTransformAttributes::Entry VYRPrtTransformAttributes::GetEntry(unsigned int i_index) const {
  Entry entry;
  entry.type = _paTransformTab[i_index];
  switch (entry.type) {
    case VYRPrintTransformMatrix: GetMatrix(i_index, entry.matrix); break;
    case VYRPrintTransformTranslation: GetTranslation(i_index, entry.translation); break;
    case VYRPrintTransformRotation: GetRotation(i_index, entry.angle); break;
    case VYRPrintTransformScaleX: GetScaleX(i_index, entry.factor); break;
    case VYRPrintTransformScaleY: GetScaleY(i_index, entry.factor); break;
    case VYRPrintTransformSkewX: GetSkewX(i_index, entry.angle); break;
    case VYRPrintTransformSkewY: GetSkewY(i_index, entry.angle); break;
  }
  return entry;
}

int VYRPrtTransformAttributes::GetTransformationMatrix(VYRMath3x3Matrix& o_matrix) const {
  o_matrix = VYRMath3x3Matrix();
  if (!_paTransformTab || _transformCount == 0) return 0;
  // Multiplying each entry on the left, from the last to the first, makes the first entry outermost.
  for (unsigned int i = _transformCount; i-- > 0;) {
    Entry entry = GetEntry(i);
    VYRMath3x3Matrix elementary;
    switch (entry.type) {
      case VYRPrintTransformMatrix: {
        double a, b, c, d;
        entry.matrix.GetCoef(a, b, c, d);
        elementary.SetCoef(a, b, 0, c, d, 0, 0, 0, 1);
        break;
      }
      case VYRPrintTransformTranslation:
        o_matrix.Set(0, 2, o_matrix.Get(0, 2) + entry.translation.x);
        o_matrix.Set(1, 2, o_matrix.Get(1, 2) + entry.translation.y);
        continue;
      case VYRPrintTransformRotation: {
        float cosine = std::cos(entry.angle);
        float sine = std::sin(entry.angle);
        elementary.SetCoef(cosine, -sine, 0, sine, cosine, 0, 0, 0, 1);
        break;
      }
      case VYRPrintTransformScaleX: elementary.Set(0, 0, entry.factor); break;
      case VYRPrintTransformScaleY: elementary.Set(1, 1, entry.factor); break;
      case VYRPrintTransformSkewX: elementary.Set(0, 1, std::tan(entry.angle)); break;
      case VYRPrintTransformSkewY: elementary.Set(1, 0, std::tan(entry.angle)); break;
      default: continue;  // an unknown kind read from a stream changes nothing
    }
    o_matrix = elementary * o_matrix;
  }
  return 1;
}

void VYRPrtTransformAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamValue(static_cast<int>(_transformCount));
  static_assert(sizeof(VYRPrintTransformType) == sizeof(unsigned int), "kinds travel as 4-byte integers");
  ipStream->StreamBytes(_paTransformTab, static_cast<int>(_transformCount * sizeof(unsigned int)));
  ipStream->StreamValue(static_cast<int>(_matrixCount));
  for (unsigned int i = 0; i < _matrixCount; ++i)
    VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(_paMatrices[i], ipStream);

  // The scale-X values are counted by the matrix count: the format has always
  // been so. Values beyond the scale-X array go out as the neutral factor 1.
  ipStream->StreamValue(static_cast<int>(_scaleXCount));
  if (_scaleXCount > 0)
    for (unsigned int i = 0; i < _matrixCount; ++i) ipStream->StreamValue(i < _scaleXCount ? _paScaleX[i] : 1.0);

  WriteValues(ipStream, _paScaleY, _scaleYCount);
  WriteValues(ipStream, _paRotations, _rotationCount);
  WriteValues(ipStream, _paSkewX, _skewXCount);
  WriteValues(ipStream, _paSkewY, _skewYCount);
  ipStream->StreamValue(static_cast<int>(_translationCount));
  for (unsigned int i = 0; i < _translationCount; ++i)
    VYRPrtStreamUnstreamHelper::SerializeVYRMathVector2D(_paTranslations[i], ipStream);
}

void VYRPrtTransformAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  Clear();
  // A damaged list is dropped whole: the identity is the neutral transform.
  if (!ReadLists(ipStream) || ipStream->HasFailed()) Clear();
}

// Each count is checked against what the stream can still hold and, for the
// parameters, against the entry count: no kind has more parameters than the
// list has entries.
bool VYRPrtTransformAttributes::ReadLists(VYRI2DGStream* ipStream) {
  unsigned int count = 0;
  if (!ReadCount(ipStream, sizeof(unsigned int), INT_MAX, count) || !NewArray(_paTransformTab, count)) return false;
  ipStream->UnstreamBytes(_paTransformTab, static_cast<int>(count * sizeof(unsigned int)));
  _transformCount = count;
  const long long entries = _transformCount;

  if (!ReadCount(ipStream, 4 * sizeof(double), entries, count) || !NewArray(_paMatrices, count)) return false;
  for (unsigned int i = 0; i < count; ++i)
    VYRPrtStreamUnstreamHelper::CreateVYRMath2x2MatrixFromStream(_paMatrices[i], ipStream);
  _matrixCount = count;

  // As many scale-X values follow as there are matrices; those beyond the
  // scale-X array are read and dropped, and unread factors stay neutral.
  if (!ReadCount(ipStream, 0, entries, count) || !NewArray(_paScaleX, count, 1.0)) return false;
  _scaleXCount = count;
  if (_scaleXCount > 0) {
    for (unsigned int i = 0; i < _matrixCount; ++i) {
      double factor = 1.0;
      ipStream->UnstreamValue(factor);
      if (i < _scaleXCount) _paScaleX[i] = factor;
    }
  }

  if (!ReadValues(ipStream, _paScaleY, _scaleYCount, entries) ||
      !ReadValues(ipStream, _paRotations, _rotationCount, entries) ||
      !ReadValues(ipStream, _paSkewX, _skewXCount, entries) || !ReadValues(ipStream, _paSkewY, _skewYCount, entries)) {
    return false;
  }
  if (!ReadCount(ipStream, 2 * sizeof(double), entries, count) || !NewArray(_paTranslations, count)) return false;
  for (unsigned int i = 0; i < count; ++i)
    VYRPrtStreamUnstreamHelper::CreateVYRMathVector2DFromStream(_paTranslations[i], ipStream);
  _translationCount = count;
  return true;
}
