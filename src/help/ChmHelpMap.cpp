#include "help/ChmHelpMap.h"

#include <algorithm>
#include <cstring>

#include "help/ChmAddress.h"

HRESULT ChmHelpMap::Open(std::string const & chmPath) {
  if (mArchive && mOpenPath == chmPath) return S_OK;
  mArchive.reset();
  mStrings.clear();
  mStringsRead = false;
  ChmError error = ChmError::None;
  mArchive = ChmArchive::Open(chmPath, error);
  if (!mArchive) return error == ChmError::NoMemory ? E_OUTOFMEMORY : STG_E_PATHNOTFOUND;
  mOpenPath = chmPath;
  return S_OK;
}

HRESULT ChmHelpMap::Load(std::string const & chmPath) {
  HRESULT const opened = Open(chmPath);
  if (opened != S_OK) return opened;
  std::string ivb;
  switch (mArchive->Extract("/#IVB", ivb)) {
    case ChmError::None: break;
    case ChmError::NotFound: return STG_E_FILENOTFOUND;
    case ChmError::NoMemory: return E_OUTOFMEMORY;
    default: return STG_E_READFAULT;
  }
  // A 32-bit size and that many bytes of pairs.
  if (ivb.size() < 4) return STG_E_READFAULT;
  std::uint32_t size = 0;
  for (int k = 3; k >= 0; --k) size = (size << 8) | static_cast<unsigned char>(ivb[k]);
  if (size > ivb.size() - 4) return STG_E_READFAULT;
  mMap = std::move(ivb);
  mPairCount = size / 8;
  mLookups = 0;
  mIndex.clear();
  mLoaded = true;
  return S_OK;
}

void ChmHelpMap::Reset() {
  mLoaded = false;
  mMap.clear();
  mPairCount = 0;
  mLookups = 0;
  mIndex.clear();
}

bool ChmHelpMap::Find(std::uint32_t helpId, std::uint32_t & offset) {
  auto const value = [this](std::size_t pair, int half) {
    auto const * const bytes =
        reinterpret_cast<unsigned char const *>(mMap.data() + 4 + 8 * pair + 4 * half);
    return static_cast<std::uint32_t>(bytes[0]) | (static_cast<std::uint32_t>(bytes[1]) << 8) |
           (static_cast<std::uint32_t>(bytes[2]) << 16) |
           (static_cast<std::uint32_t>(bytes[3]) << 24);
  };
  if (++mLookups == 2) {
    mIndex.reserve(mPairCount);
    for (std::size_t pair = 0; pair < mPairCount; ++pair)
      mIndex.emplace_back(value(pair, 0), static_cast<std::uint32_t>(pair));
    std::sort(mIndex.begin(), mIndex.end());
  }
  if (mIndex.empty()) {
    for (std::size_t pair = 0; pair < mPairCount; ++pair) {
      if (value(pair, 0) != helpId) continue;
      offset = value(pair, 1);
      return true;
    }
    return false;
  }
  auto const found = std::lower_bound(mIndex.begin(), mIndex.end(), std::make_pair(helpId, 0U));
  if (found == mIndex.end() || found->first != helpId) return false;
  offset = value(found->second, 1);
  return true;
}

HRESULT ChmHelpMap::Resolve(std::string const & chmPath, std::uint32_t helpId,
                            std::string & address) {
  address.clear();
  if (chmPath.empty()) return STG_E_PATHNOTFOUND;
  if (!mLoaded) {
    HRESULT const loaded = Load(chmPath);
    if (loaded != S_OK) return loaded;
  }
  std::uint32_t stringOffset = 0;
  if (mPairCount == 0 || !Find(helpId, stringOffset)) return E_FAIL;
  HRESULT const opened = Open(chmPath);
  if (opened != S_OK) return opened == E_OUTOFMEMORY ? opened : STG_E_PATHNOTFOUND;
  if (!mStringsRead) {
    // Without "#STRINGS" every topic reads as nothing.
    if (mArchive->Extract("/#STRINGS", mStrings) != ChmError::None) mStrings.clear();
    mStringsRead = true;
  }
  std::string topic;
  if (!ReadTopic(stringOffset, MakeChmAddress(chmPath, "").size(), topic)) topic.clear();
  address = MakeChmAddress(chmPath, ChmTextToUtf8(topic));
  return S_OK;
}

bool ChmHelpMap::ReadTopic(std::uint32_t offset, std::size_t used, std::string & topic) const {
  // Read in chunks of 64 bytes until a zero byte ends the name; each chunk
  // needs room for 65 more bytes. A name that does not fit, or runs to the
  // end of the stream without its zero byte, is not read at all.
  std::size_t at = offset;
  std::size_t room = used < kAddressRoom ? kAddressRoom - used : 0;
  for (;;) {
    if (room < kChunk + 1 || at >= mStrings.size()) return false;
    std::size_t const n = std::min(kChunk, mStrings.size() - at);
    char const * const chunk = mStrings.data() + at;
    auto const * const zero = static_cast<char const *>(std::memchr(chunk, '\0', n));
    if (zero != nullptr) {
      topic.append(chunk, static_cast<std::size_t>(zero - chunk));
      return true;
    }
    topic.append(chunk, n);
    at += n;
    room -= n;
  }
}
