/// \file
/// What the library shows to its callers: marked classes and functions, nothing else.

#pragma once

#if defined(SMBIOSPROTOCOL_STATIC)
#define SMBIOSPROTOCOL_API
#elif defined(_WIN32)
#if defined(SMBIOSPROTOCOL_BUILDING)
#define SMBIOSPROTOCOL_API __declspec(dllexport)
#else
#define SMBIOSPROTOCOL_API __declspec(dllimport)
#endif
#else
#define SMBIOSPROTOCOL_API __attribute__((visibility("default")))
#endif
