/* Writes screen-scroll.gif: a screen-capture-like animation for decode benchmarks.
 *
 * Each frame is a 1024x768 desktop in 16 colours: a flat background, a task bar, and three
 * windows with title bars, borders and lines of "text" (small glyph patterns from a hash,
 * separated by blank runs); the editor window's text scrolls by one line per frame and the
 * front window moves. Long runs of one colour and 12-bit codes dominate, as in captures of
 * user interfaces. giflib writes the file (clear when its table is full).
 *
 * Build: gcc -O2 -o make_screen_anim make_screen_anim.c -lgif
 * Run:   ./make_screen_anim screen-scroll.gif
 * Output is deterministic. */
#include <gif_lib.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

enum { W = 1024, H = 768, FRAMES = 8 };
static uint8_t px[H][W];

static uint32_t hash2(uint32_t a, uint32_t b) {
  uint32_t h = a * 374761393u + b * 668265263u;
  h = (h ^ (h >> 13)) * 1274126177u;
  return h ^ (h >> 16);
}

static void rect(int x0, int y0, int x1, int y1, uint8_t c) {
  for (int y = y0 < 0 ? 0 : y0; y < y1 && y < H; y++)
    for (int x = x0 < 0 ? 0 : x0; x < x1 && x < W; x++) px[y][x] = c;
}

/* Lines of 6x9 glyphs; words of 2-9 glyphs; `first` is the number of the top line. */
static void text(int x0, int y0, int x1, int y1, int first, uint8_t ink) {
  for (int line = 0; y0 + line * 14 + 9 <= y1; line++) {
    uint32_t n = (uint32_t)(first + line);
    int len = 20 + (int)(hash2(n, 7) % 60), x = x0 + 4 * (int)(hash2(n, 3) % 6);
    for (int g = 0; g < len && x + 6 <= x1; g++, x += 7) {
      if (hash2(n, (uint32_t)g) % 7 == 0) continue; /* a space */
      uint32_t shape = hash2(n * 131u + (uint32_t)g, 99);
      for (int gy = 0; gy < 9; gy++)
        for (int gx = 0; gx < 5; gx++)
          if ((shape >> ((gy * 5 + gx) % 31)) & 1 && (gy + gx) % 3 != 0) px[y0 + line * 14 + gy][x + gx] = ink;
    }
  }
}

static void window(int x, int y, int w, int h, int scroll, uint8_t title) {
  rect(x - 1, y - 1, x + w + 1, y + h + 1, 8);
  rect(x, y, x + w, y + 24, title);
  rect(x + w - 20, y + 4, x + w - 4, y + 20, 12);
  rect(x, y + 24, x + w, y + h, 15);
  text(x + 8, y + 32, x + w - 8, y + h - 6, scroll, 0);
}

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  GifColorType colors[16] = {{0, 0, 0}, {128, 0, 0}, {0, 128, 0}, {128, 128, 0}, {0, 0, 128}, {128, 0, 128},
                             {0, 128, 128}, {192, 192, 192}, {128, 128, 128}, {255, 0, 0}, {0, 255, 0},
                             {255, 255, 0}, {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
  ColorMapObject* cmap = GifMakeMapObject(16, colors);
  int err = 0;
  GifFileType* g = EGifOpenFileName(argv[1], false, &err);
  if (!g) return 1;
  EGifSetGifVersion(g, true);
  if (EGifPutScreenDesc(g, W, H, 4, 0, cmap) != GIF_OK) return 1;
  for (int f = 0; f < FRAMES; f++) {
    rect(0, 0, W, H, 6);
    rect(0, H - 32, W, H, 7);
    for (int i = 0; i < 6; i++) rect(8 + i * 120, H - 28, 120 + i * 120, H - 4, i == 1 ? 15 : 8);
    window(40, 40, 600, 520, f, 4);
    window(420, 200, 560, 420, 1000, 2);
    window(200 + 24 * f, 360 + 8 * f, 380, 240, 2000, 5);
    GraphicsControlBlock gcb = {0, false, 10, NO_TRANSPARENT_COLOR};
    GifByteType ext[4];
    EGifGCBToExtension(&gcb, ext);
    EGifPutExtension(g, GRAPHICS_EXT_FUNC_CODE, 4, ext);
    if (EGifPutImageDesc(g, 0, 0, W, H, false, NULL) != GIF_OK) return 1;
    for (int y = 0; y < H; y++)
      if (EGifPutLine(g, px[y], W) != GIF_OK) return 1;
  }
  GifFreeMapObject(cmap);
  return EGifCloseFile(g, &err) == GIF_OK ? 0 : 1;
}
