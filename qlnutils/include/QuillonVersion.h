// Version of the Quillon library, as built.
#pragma once

#include "QuillonExport.h"

// The library's version text, "major.minor.patch".
QLN_API const char* GetQuillonVersion();
