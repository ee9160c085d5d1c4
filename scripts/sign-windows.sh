#!/usr/bin/env bash
# Signs programs for Windows: sign-windows.sh FILE... The certificate is a PKCS #12 file that QUORVALE_CERTIFICATE
# names, with its password in QUORVALE_CERTIFICATE_PASSWORD. Without one it says so and signs nothing. With the address of
# a time stamp service (RFC 3161) in QUORVALE_TIMESTAMP the signatures outlive the certificate.
set -euo pipefail
if [ -z "${QUORVALE_CERTIFICATE:-}" ]; then
  echo "Not signed, because QUORVALE_CERTIFICATE names no certificate: $*"
  exit
fi
for file in "$@"; do
  osslsigncode sign -pkcs12 "$QUORVALE_CERTIFICATE" -pass "${QUORVALE_CERTIFICATE_PASSWORD:-}" -h sha256 -n Quorvale \
    ${QUORVALE_TIMESTAMP:+-ts "$QUORVALE_TIMESTAMP"} \
    -in "$file" -out "$file.signed"
  mv "$file.signed" "$file"
done
