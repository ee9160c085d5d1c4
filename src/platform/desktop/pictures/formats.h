#pragma once

#include <memory>

#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/rendered_picture.h"

// The functions of each format for the table in picture_loader.cpp. A format's own file defines them.

namespace quorvale {

using OpenedPicture = std::shared_ptr<RenderedPicture>;

// Recognise a file by its first bytes.
bool IsBmp(PictureFile& file);
bool IsGif(PictureFile& file);
bool IsJpeg(PictureFile& file);
bool IsHeif(PictureFile& file);  // HEIC and AVIF
bool IsJxl(PictureFile& file);
bool IsPng(PictureFile& file);
bool IsTiff(PictureFile& file);
bool IsWebp(PictureFile& file);

// Read the header. Fail with kBadPicture.
OpenedPicture OpenBmp(std::unique_ptr<PictureFile> file);
OpenedPicture OpenGif(std::unique_ptr<PictureFile> file);
OpenedPicture OpenJpeg(std::unique_ptr<PictureFile> file);
OpenedPicture OpenHeif(std::unique_ptr<PictureFile> file);
OpenedPicture OpenJxl(std::unique_ptr<PictureFile> file);
OpenedPicture OpenPng(std::unique_ptr<PictureFile> file);
OpenedPicture OpenTiff(std::unique_ptr<PictureFile> file);
OpenedPicture OpenWebp(std::unique_ptr<PictureFile> file);

}  // namespace quorvale
