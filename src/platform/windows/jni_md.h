/*
 * The machine-dependent part of the Java Native Interface on Windows, as its documentation gives it; jni.h includes it.
 * The one that a Linux JDK has leaves natives unexported here. The jni.h of a JDK that no longer serves x86 overrides
 * JNICALL: natives for x86 need an earlier one, such as that of JDK 17.
 */
#ifndef TABVEX_JNI_MD_H
#define TABVEX_JNI_MD_H

#define JNIEXPORT __declspec(dllexport)
#define JNIIMPORT __declspec(dllimport)
#define JNICALL __stdcall /* the only convention there is on x86-64, where it changes nothing */

typedef long jint; /* 32 bits */
#ifdef __cplusplus
typedef long long jlong;
#else
__extension__ typedef long long jlong;
#endif
typedef signed char jbyte;

#endif
