/* A reference word counter for the speed comparison, not part of the program: maps the file,
 * takes every run of ASCII letters as a word, lower-cases it, counts it in an open-addressing
 * table and prints "count word" lines by falling count. It knows none of the program's rules, so
 * it marks the speed that plain splitting and counting can reach.
 *
 *   tuned_counter FILE
 */
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

typedef struct {
  uint64_t hash;
  const char *word;
  uint32_t size;
  uint32_t count; /* 0: empty slot */
} Slot;

static Slot *slots;
static size_t mask, used;
static char lower[256];
static unsigned char isLetter[256];

/* The words are lower-cased into their own buffer, so the mapping can stay read-only. */
static char *lowered;
static size_t loweredSize;

static void Grow(void) {
  size_t capacity = (mask + 1) * 2;
  Slot *grown = calloc(capacity, sizeof *grown);
  if (!grown) exit(2);
  for (size_t i = 0; i <= mask; ++i) {
    if (!slots[i].count) continue;
    size_t j = slots[i].hash & (capacity - 1);
    while (grown[j].count) j = (j + 1) & (capacity - 1);
    grown[j] = slots[i];
  }
  free(slots);
  slots = grown;
  mask = capacity - 1;
}

/* h: the word's hash, made while it was scanned. */
static void Count(const char *word, size_t n, uint64_t h) {
  size_t i = h & mask;
  for (;;) {
    Slot *s = &slots[i];
    if (!s->count) break;
    if (s->hash == h && s->size == n && memcmp(s->word, word, n) == 0) {
      ++s->count;
      return;
    }
    i = (i + 1) & mask;
  }
  char *kept = lowered + loweredSize;
  memcpy(kept, word, n);
  loweredSize += n;
  slots[i] = (Slot){h, kept, (uint32_t)n, 1};
  if (++used * 4 > (mask + 1) * 3) Grow();
}

static int ByFallingCount(const void *a, const void *b) {
  const Slot *x = a, *y = b;
  if (x->count != y->count) return x->count < y->count ? 1 : -1;
  size_t n = x->size < y->size ? x->size : y->size;
  int c = memcmp(x->word, y->word, n);
  return c ? c : (int)x->size - (int)y->size;
}

int main(int argc, char **argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: tuned_counter FILE\n");
    return 2;
  }
  int fd = open(argv[1], O_RDONLY);
  struct stat st;
  if (fd < 0 || fstat(fd, &st) != 0) return 1;
  size_t size = (size_t)st.st_size;
  const char *text = size ? mmap(NULL, size, PROT_READ, MAP_PRIVATE, fd, 0) : "";
  if (text == MAP_FAILED) return 1;
  for (int c = 0; c < 256; ++c) {
    isLetter[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    lower[c] = (char)(c >= 'A' && c <= 'Z' ? c + 32 : c);
  }
  mask = (1 << 16) - 1;
  slots = calloc(mask + 1, sizeof *slots);
  lowered = malloc(size + 1);
  char word[256];
  const char *p = text, *end = text + size;
  while (p < end) {
    while (p < end && !isLetter[(unsigned char)*p]) ++p;
    size_t n = 0;
    uint64_t h = 0xcbf29ce484222325ull; /* FNV-1a, folded in while the letters are copied */
    for (; p < end && isLetter[(unsigned char)*p]; ++p) {
      char c = lower[(unsigned char)*p];
      if (n < sizeof word) word[n++] = c;
      h = (h ^ (unsigned char)c) * 0x100000001b3ull;
    }
    if (n) Count(word, n, h ^ (h >> 29));
  }
  size_t kept = 0;
  for (size_t i = 0; i <= mask; ++i) {
    if (slots[i].count) slots[kept++] = slots[i];
  }
  qsort(slots, kept, sizeof *slots, ByFallingCount);
  for (size_t i = 0; i < kept; ++i) {
    printf("%u %.*s\n", slots[i].count, (int)slots[i].size, slots[i].word);
  }
  return 0;
}
