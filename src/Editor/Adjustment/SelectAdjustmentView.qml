import QtQuick
import Quorvane.SdkImage

// The adjustments' carousel: the filter carousel, showing symbols.
SelectFilterView {
    showsTransparency: false
}
