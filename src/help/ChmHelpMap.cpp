#include "help/ChmHelpMap.h"

#include <algorithm>
#include <cstring>
#include <new>

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
  try {
    auto pairs = ParseChmIdMap(ivb);
    if (!pairs) return STG_E_READFAULT;
    mPairs = std::move(*pairs);
  } catch (std::bad_alloc const &) {
    return E_OUTOFMEMORY;
  }
  mLoaded = true;
  return S_OK;
}

void ChmHelpMap::Reset() {
  mLoaded = false;
  mPairs.clear();
}

HRESULT ChmHelpMap::Resolve(std::string const & chmPath, std::uint32_t helpId,
                            std::string & address) {
  address.clear();
  if (chmPath.empty()) return STG_E_PATHNOTFOUND;
  if (!mLoaded) {
    HRESULT const loaded = Load(chmPath);
    if (loaded != S_OK) return loaded;
  }
  if (mPairs.empty()) return E_FAIL;
  auto const pair = std::find_if(mPairs.begin(), mPairs.end(),
                                 [helpId](ChmIdPair const & p) { return p.helpId == helpId; });
  if (pair == mPairs.end()) return E_FAIL;
  HRESULT const opened = Open(chmPath);
  if (opened != S_OK) return opened == E_OUTOFMEMORY ? opened : STG_E_PATHNOTFOUND;
  if (!mStringsRead) {
    // Without "#STRINGS" every topic reads as nothing.
    if (mArchive->Extract("/#STRINGS", mStrings) != ChmError::None) mStrings.clear();
    mStringsRead = true;
  }
  std::string topic;
  if (!ReadTopic(pair->stringOffset, MakeChmAddress(chmPath, "").size(), topic)) topic.clear();
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
