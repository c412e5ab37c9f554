' The last failure comes back in the script's own variables.
Option Explicit
Dim view, number, source, description, helpFile, helpContext
Set view = CreateObject("VellaneInet2.ImageView")
number = 99
helpContext = "7"
view.GetLastError number, source, description, helpFile, helpContext
Host.Check number = 0, "no failure yet: " & number
Host.Check source = "" And description = "" And helpFile = "", "nothing to describe"
Host.Check helpContext = 0, "text that is a number is taken as one"

On Error Resume Next
number = "none"
view.GetLastError number, source, description, helpFile, helpContext
Host.Check Err.Number = 13, "text that is no number is refused: " & Err.Number
