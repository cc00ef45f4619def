#include "workbench/render/character_width.h"

#include <utf8proc.h>

namespace workbench {

int characterWidth(char32_t character) {
  // Vowels and final consonants of Hangul join the syllable before them; utf8proc counts each for itself.
  if (character >= 0x1160 && character <= 0x11ff) return 0;
  return utf8proc_charwidth(static_cast<utf8proc_int32_t>(character));
}

}  // namespace workbench
