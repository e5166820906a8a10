// The system's headers for COM and automation, in the order that they need.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <ole2.h>

#include <ocidl.h>
#include <olectl.h>

// Objects of COM end by Release, never through a destructor of their interfaces, which have none.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
