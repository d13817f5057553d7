/* Two natives as a Java compiler declares them. With the jni_md.h of another system neither would be exported. */
#include <jni_md.h>

JNIEXPORT jint JNICALL Java_sample_Natives_add(void* environment, void* object, jint first, jlong second);
JNIEXPORT void JNICALL Java_sample_Natives_none(void* environment, void* object);

JNIEXPORT jint JNICALL Java_sample_Natives_add(void* environment, void* object, jint first, jlong second) {
    (void)environment;
    (void)object;
    return first + (jint)second;
}

JNIEXPORT void JNICALL Java_sample_Natives_none(void* environment, void* object) {
    (void)environment;
    (void)object;
}
