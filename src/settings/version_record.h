#pragma once

namespace quorvale {

inline constexpr char kCompanyName[] = "Halvern Inc.";
inline constexpr char kProductName[] = "Quorvale Customizable Screen Saver";
// The title of message boxes that have no title of their own.
inline constexpr char kApplicationTitle[] = "Quorvale";

}  // namespace quorvale
