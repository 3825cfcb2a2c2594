#include "controls/SplashFade.h"

#include <utility>

SplashFade::SplashFade(bool in, std::chrono::milliseconds duration, Clock clock)
    : mIn(in), mDuration(duration), mClock(std::move(clock)), mStart(mClock()) {}

bool SplashFade::Finished() const { return mClock() - mStart >= mDuration; }

unsigned char SplashFade::Alpha() const {
  auto const elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(mClock() - mStart);
  long long done = 255;
  // A clock that went backwards counts as the fade's start.
  if (elapsed >= mDuration)
    done = 255;
  else if (elapsed.count() <= 0)
    done = 0;
  else
    done = elapsed.count() * 255 / mDuration.count();
  return static_cast<unsigned char>(mIn ? done : 255 - done);
}
