#pragma once

#include <memory>

#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/rendered_picture.h"

// What each format's own file gives to the table of formats in picture_loader.cpp.

namespace quorvale {

using OpenedPicture = std::shared_ptr<RenderedPicture>;

// By the first bytes of the file.
bool IsBmp(PictureFile& file);
bool IsGif(PictureFile& file);
bool IsJpeg(PictureFile& file);
bool IsPng(PictureFile& file);

// These read the header, and fail with kBadPicture.
OpenedPicture OpenBmp(std::unique_ptr<PictureFile> file);
OpenedPicture OpenGif(std::unique_ptr<PictureFile> file);
OpenedPicture OpenJpeg(std::unique_ptr<PictureFile> file);
OpenedPicture OpenPng(std::unique_ptr<PictureFile> file);

}  // namespace quorvale
