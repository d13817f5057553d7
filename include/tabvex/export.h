/* TABVEX_API marks what the shared library shows to its callers. */
#ifndef TABVEX_EXPORT_H
#define TABVEX_EXPORT_H

#if defined(TABVEX_STATIC)
#define TABVEX_API
#elif defined(_WIN32)
#if defined(TABVEX_BUILDING)
#define TABVEX_API __declspec(dllexport)
#else
#define TABVEX_API __declspec(dllimport)
#endif
#else
#define TABVEX_API __attribute__((visibility("default")))
#endif

#endif
