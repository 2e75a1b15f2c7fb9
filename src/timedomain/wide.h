#pragma once

// HALVORNE_WIDE marks a procedure that is compiled twice and chosen at run time: where the
// processor has wider instructions it uses them. Products and sums are never fused, so the results
// are the same. HALVORNE_NO_OVERLAP before a loop tells that no element is both written by one
// turn and read by another.
#if defined(__clang__)
#define HALVORNE_WIDE
#define HALVORNE_NO_OVERLAP _Pragma("clang loop vectorize(assume_safety)")
#elif defined(__GNUC__) && defined(__x86_64__) && defined(__linux__)
#define HALVORNE_WIDE [[gnu::target_clones("avx2", "default")]]
#define HALVORNE_NO_OVERLAP _Pragma("GCC ivdep")
#else
#define HALVORNE_WIDE
#define HALVORNE_NO_OVERLAP
#endif
