# What the package, the metadata and the man page tell of the program's owner, in one place. The version
# stands at the top of CMakeLists.txt.

# No licence has been granted yet; these two say just that, wherever a licence is asked for.
set(VELNA_LICENCE "LicenseRef-proprietary")
set(VELNA_LICENCE_TEXT "No licence has been granted yet: all rights are reserved.")
set(VELNA_OWNER "The Velna developers")
set(VELNA_YEARS "2026")

# The owner's addresses; those of example.org hold the place until they are known.
set(VELNA_MAINTAINER "Velna Maintainers <velna@example.org>")
set(VELNA_HOMEPAGE "https://example.org/velna")
# The names of this domain backwards are the program's own in the software centres.
set(VELNA_APPSTREAM_ID "org.example.velna")

# The day of this version, and the number of its Debian package: 0 in front, since Debian has none itself.
set(VELNA_RELEASE_DATE "2026-11-22")
set(VELNA_DEBIAN_REVISION "0velna1")
