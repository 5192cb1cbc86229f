#pragma once

/// Which of the photo's metadata the written file carries. By default: the date and time taken, the camera,
/// lens and exposure, artist, copyright and description; never the location, serial numbers, the maker's
/// private notes, the embedded thumbnail, XMP or IPTC. The orientation is always baked into the pixels (the
/// tag says 1), and the colour profile is always kept: it is what the pixels' colours mean.
struct QuorvaneSdkImageMetadataPolicy
{
    /// Also keeps the GPS position, altitude, direction and time.
    bool keepLocation = false;
    /// Writes no metadata at all (the colour profile stays).
    bool stripAll = false;

    friend bool operator==(const QuorvaneSdkImageMetadataPolicy& a, const QuorvaneSdkImageMetadataPolicy& b)
    {
        return a.keepLocation == b.keepLocation && a.stripAll == b.stripAll;
    }
    friend bool operator!=(const QuorvaneSdkImageMetadataPolicy& a, const QuorvaneSdkImageMetadataPolicy& b)
    {
        return !(a == b);
    }
};
