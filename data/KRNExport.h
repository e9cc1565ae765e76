#pragma once

// Only the classes and functions a host may use are exported from the shared
// library; everything else stays hidden (-fvisibility=hidden).
#if defined(_WIN32)
#  if defined(KRN_BUILDING_ENGINE)
#    define KRN_API __declspec(dllexport)
#  else
#    define KRN_API __declspec(dllimport)
#  endif
#else
#  define KRN_API __attribute__((visibility("default")))
#endif
