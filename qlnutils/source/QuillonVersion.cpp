#include "QuillonVersion.h"

const char* GetQuillonVersion()
{
    return QUILLON_VERSION_TEXT;
}
