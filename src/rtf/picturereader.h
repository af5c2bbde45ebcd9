#pragma once

#include "rtf/document.h"

#include <cstddef>
#include <string_view>

namespace kelvo::rtf {

/// Gathers one picture after the other, within a bound on the bytes of them all.
class PictureReader {
  public:
    void Begin() { picture_ = {}, begun_ = false, halfByte_ = -1; }
    void SetKind(PictureKind kind) { picture_.kind = kind; }
    void SetWidth(int twips) { picture_.width = twips; }
    void SetHeight(int twips) { picture_.height = twips; }
    void SetScaleX(int percent) { picture_.scaleX = percent; }
    void SetScaleY(int percent) { picture_.scaleY = percent; }

    /// Two digits a byte; what is no digit is skipped.
    void AddHex(std::string_view digits);
    void AddBytes(std::string_view bytes);

    /// Whether there was a picture at all.
    bool Begun() const { return begun_; }
    /// The picture as a document keeps it: without its bytes when they are of no use, or too many.
    Picture Take();

  private:
    void Add(char byte);

    Picture picture_;
    bool begun_ = false;
    int halfByte_ = -1;                          ///< a digit that waits for its second one; -1 = none
    std::size_t left_ = Picture::MostBytesOfAll; ///< for this picture and those that come
};

} // namespace kelvo::rtf
