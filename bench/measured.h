/*
 * What the measuring programs print about themselves: the seconds of processor time that their work took and the most
 * memory that the process has had.
 */
#ifndef TABVEX_BENCH_MEASURED_H
#define TABVEX_BENCH_MEASURED_H

#ifdef __cplusplus
extern "C" {
#endif

/* Seconds of processor time that this process has had, the system's work for it included. On a machine with other work
 * the wall clock tells of that. */
double Now(void);
/* Prints "seconds peak", the peak in bytes. */
void PrintMeasured(double seconds);

#ifdef __cplusplus
}
#endif

#endif
