#pragma once

// HALVORNE_WIDE marks a procedure that is compiled several times and chosen at run time: where the
// processor has wider instructions it uses them. Products and sums are never fused, so the results
// are the same. HALVORNE_NO_OVERLAP before a loop tells that no element is both written by one
// turn and read by another. HALVORNE_WIDE_CALLS before a loop tells the same, and that it calls
// functions of the C library marked with HALVORNE_HAS_WIDE, which then work on several numbers at
// once, to 4 units in the last place.
#if defined(__clang__)
#define HALVORNE_WIDE
#define HALVORNE_NO_OVERLAP _Pragma("clang loop vectorize(assume_safety)")
#elif defined(__GNUC__) && defined(__x86_64__) && defined(__linux__)
#define HALVORNE_WIDE [[gnu::target_clones("avx512f", "avx2", "default")]]
#define HALVORNE_NO_OVERLAP _Pragma("GCC ivdep")
#else
#define HALVORNE_WIDE
#define HALVORNE_NO_OVERLAP
#endif

#if defined(HALVORNE_VECTOR_LIBRARY)
#define HALVORNE_HAS_WIDE [[gnu::simd("notinbranch")]]
#define HALVORNE_WIDE_CALLS _Pragma("omp simd")
#else
#define HALVORNE_HAS_WIDE
#define HALVORNE_WIDE_CALLS
#endif
