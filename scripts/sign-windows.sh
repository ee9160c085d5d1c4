#!/usr/bin/env bash
# Signs programs for Windows: sign-windows.sh FILE... The certificate is a PKCS #12 file that QUORVALE_CERTIFICATE
# names, with its password in QUORVALE_CERTIFICATE_PASSWORD. Without one it says so and signs nothing.
set -euo pipefail
if [ -z "${QUORVALE_CERTIFICATE:-}" ]; then
  echo "Not signed, because QUORVALE_CERTIFICATE names no certificate: $*"
  exit
fi
for file in "$@"; do
  osslsigncode sign -pkcs12 "$QUORVALE_CERTIFICATE" -pass "${QUORVALE_CERTIFICATE_PASSWORD:-}" -h sha256 -n Quorvale \
    -in "$file" -out "$file.signed"
  mv "$file.signed" "$file"
done
