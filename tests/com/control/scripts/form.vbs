' The control in a window, as on a form.
Option Explicit
Dim view
Set view = CreateObject("VellaneInet2.ImageView")
Host.Check view.hWnd = 0, "no window before it is shown"
view.PrintCaption = "kept"
Host.Show view
Host.Sleep 50
Host.Check view.hWnd <> 0, "a window"
Host.Check view.PrintCaption = "kept", "what was set before stays"
view.Refresh
Host.Sleep 50
