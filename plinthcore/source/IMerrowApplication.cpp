#include "IMerrowApplication.h"

namespace
{
IMerrowApplication* gApplication = nullptr;
} // namespace

IMerrowApplication* GetIMerrowApplication()
{
    return gApplication;
}

IMerrowApplication* SetIMerrowApplication(IMerrowApplication* application)
{
    IMerrowApplication* previous = gApplication;
    gApplication = application;
    return previous;
}
