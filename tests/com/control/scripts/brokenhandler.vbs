Option Explicit
Dim view
Set view = CreateObject("VellaneInet2.ImageView")
Host.Connect view, "view_"
view.Clear

' A failing handler is the script's failure, not the control's.
Sub view_PageChanged(document, page)
    Err.Raise 5
End Sub
