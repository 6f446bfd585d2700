#include "ops/sorting/packed_shell_sort.hpp"

#include "ops/sorting/row_sorts.hpp"

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define QUILTA_SHELL_AVX2 1
#include <immintrin.h>
#endif

namespace quilta::ops {
namespace {

// The entries of one gap's pass from `from` on, one at a time. With the offset bits all set, an
// entry is below another exactly when its key is below the other's: equal keys never pass each
// other.
void ScalarPass(uint64_t* a, size_t n, size_t gap, uint64_t low, size_t from) {
  for (size_t i = from; i < n; ++i) {
    uint64_t taken = a[i];
    uint64_t probe = taken | low;
    if (!(probe < a[i - gap])) continue;
    size_t j = i;
    do {
      a[j] = a[j - gap];
      j -= gap;
    } while (j >= gap && probe < a[j - gap]);
    a[j] = taken;
  }
}

#ifdef QUILTA_SHELL_AVX2

// Finishes, one by one, the entries of lanes still moving when their hole came within one gap of
// the start: lane k's hole is at hole + k.
void FinishLanes(uint64_t* a, size_t gap, uint64_t low, size_t hole, const uint64_t* taken,
                 const int64_t* moving) {
  for (size_t k = 0; k < 8; ++k) {
    if (!moving[k]) continue;
    size_t j = hole + k;
    uint64_t probe = taken[k] | low;
    while (j >= gap && probe < a[j - gap]) {
      a[j] = a[j - gap];
      j -= gap;
    }
    a[j] = taken[k];
  }
}

#define QUILTA_AVX2 __attribute__((target("avx2")))

QUILTA_AVX2 inline __m256i Load(const uint64_t* at) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}
QUILTA_AVX2 inline void Store(uint64_t* at, __m256i v) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(at), v);
}
// Lanes where probe < other, unsigned: both sides have their top bit flipped (the probe already).
QUILTA_AVX2 inline __m256i Below(__m256i flippedProbe, __m256i other, __m256i sign) {
  return _mm256_cmpgt_epi64(_mm256_xor_si256(other, sign), flippedProbe);
}

// One gap's pass, eight consecutive entries at a time. With a gap of at least eight they lie in
// eight different chains, so their insertions are independent and can step down together, each
// lane moving only while its own entry is smaller: the moves are exactly those of the one-at-a-
// time pass. The point is the branches: the scalar pass mispredicts where each entry stops, this
// one only where the last of eight stops.
QUILTA_AVX2 void EightLanePass(uint64_t* a, size_t n, size_t gap, uint64_t low) {
  const __m256i sign = _mm256_set1_epi64x(INT64_MIN);
  const __m256i lowBits = _mm256_set1_epi64x(static_cast<int64_t>(low));
  size_t i = gap;
  for (; i + 8 <= n; i += 8) {
    __m256i takenA = Load(a + i), takenB = Load(a + i + 4);
    __m256i probeA = _mm256_xor_si256(_mm256_or_si256(takenA, lowBits), sign);
    __m256i probeB = _mm256_xor_si256(_mm256_or_si256(takenB, lowBits), sign);
    __m256i prevA = Load(a + i - gap), prevB = Load(a + i - gap + 4);
    __m256i movingA = Below(probeA, prevA, sign), movingB = Below(probeB, prevB, sign);
    __m256i any = _mm256_or_si256(movingA, movingB);
    if (_mm256_testz_si256(any, any)) continue;
    // Each step fills the holes of moving lanes with the entries a gap below; `cur` is what the
    // other lanes put at the hole's row: their own entry where they stopped just now, else what
    // is there.
    size_t hole = i;
    __m256i curA = takenA, curB = takenB;
    for (;;) {
      Store(a + hole, _mm256_blendv_epi8(curA, prevA, movingA));
      Store(a + hole + 4, _mm256_blendv_epi8(curB, prevB, movingB));
      hole -= gap;
      if (hole < gap) {
        alignas(32) uint64_t taken[8];
        alignas(32) int64_t moving[8];
        _mm256_store_si256(reinterpret_cast<__m256i*>(taken), takenA);
        _mm256_store_si256(reinterpret_cast<__m256i*>(taken + 4), takenB);
        _mm256_store_si256(reinterpret_cast<__m256i*>(moving), movingA);
        _mm256_store_si256(reinterpret_cast<__m256i*>(moving + 4), movingB);
        FinishLanes(a, gap, low, hole, taken, moving);
        break;
      }
      __m256i nextA = Load(a + hole - gap), nextB = Load(a + hole - gap + 4);
      __m256i goesOnA = _mm256_and_si256(movingA, Below(probeA, nextA, sign));
      __m256i goesOnB = _mm256_and_si256(movingB, Below(probeB, nextB, sign));
      // Lanes that stop here take their entry; for lanes going on it is overwritten next step.
      curA = _mm256_blendv_epi8(Load(a + hole), takenA, movingA);
      curB = _mm256_blendv_epi8(Load(a + hole + 4), takenB, movingB);
      __m256i goesOn = _mm256_or_si256(goesOnA, goesOnB);
      if (_mm256_testz_si256(goesOn, goesOn)) {
        Store(a + hole, curA);
        Store(a + hole + 4, curB);
        break;
      }
      movingA = goesOnA, movingB = goesOnB;
      prevA = nextA, prevB = nextB;
    }
  }
  ScalarPass(a, n, gap, low, i);
}

bool HasAvx2() {
  static const bool has = __builtin_cpu_supports("avx2");
  return has;
}

#endif

}  // namespace

void ShellSortPacked(uint64_t* a, size_t n, unsigned shift, bool eightLanes) {
  if (n < 2) return;
  const uint64_t low = (uint64_t{1} << shift) - 1;
#ifdef QUILTA_SHELL_AVX2
  eightLanes = eightLanes && HasAvx2();
#else
  eightLanes = false;
#endif
  for (size_t gap = FirstGap(n); gap > 0; gap = (gap - 1) / 3) {
#ifdef QUILTA_SHELL_AVX2
    if (eightLanes && gap >= 8) {
      EightLanePass(a, n, gap, low);
      continue;
    }
#endif
    ScalarPass(a, n, gap, low, gap);
  }
}

}  // namespace quilta::ops
