#include "VYRPrintInputXMLElement.h"

VYR_IMPLEMENT_CLASS(VYRPrintInputXMLElement, VYRPrintInput, "Multimedia2DRendering")
