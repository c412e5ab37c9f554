' Every kind of property, read and written late bound.
Option Explicit
Dim view
Set view = CreateObject("VellaneInet2.ImageView")
Host.Check view.FetchDelay = 300, "a number's default"
Host.Check Asc(view.Delimiter) = &HB7, "the delimiter's default"
Host.Check view.BackColor = &H8000000F, "a colour's default"
Host.Check VarType(view.Page) = 2, "16-bit numbers are Integers"
Host.Check VarType(view.DocID) = 3, "32-bit numbers are Longs"
Host.Check VarType(view.Enabled) = 11, "Booleans"
Host.Check VarType(view.PrintFee) = 8, "texts"
Host.Check view.MachineName <> "" And view.UserLogin <> "", "who is at which machine"

view.PrintCaption = "Caption"
view.PrintPageNums = False
view.EncBytes = "64"
view.delimiter = "  |;"
Host.Check view.PrintCaption = "Caption", "text"
Host.Check view.PrintPageNums = False, "Boolean"
Host.Check view.EncBytes = 64, "a number given as text"
Host.Check view.Delimiter = "|", "the first character that is no blank"
view.Font.Size = 12
view.Font.Bold = True
Host.Check view.Font.Size = 12 And view.Font.Bold, "the font's own properties"
view.PrintPageNums = 1
Host.Check view.PrintPageNums = True, "a Boolean given as a number"
view.PrintPageNums = 0
Host.Check view.PrintPageNums = False, "and back"
view.PrintCaption = 5
Host.Check view.PrintCaption = "5", "a text given as a number"

On Error Resume Next
view.PublicKey = ""
Host.Check Err.Number = 380, "an empty key is refused: " & Err.Number
Host.Check Err.Source = "VellaneInet.ImageView.PublicKey", "the source names the property: " & Err.Source
Host.Check Err.Description = "Invalid property value", Err.Description
Err.Clear
view.FetchDelay = "soon"
Host.Check Err.Number = 13, "a type mismatch: " & Err.Number
Err.Clear
view.PrintCapFontSize = 100000
Host.Check Err.Number = 6, "an overflow: " & Err.Number
Err.Clear
view.FetchDelay = -1
Host.Check Err.Number = 380, "a number out of bounds: " & Err.Number
Host.Check Err.Source = "VellaneInet.ImageView.FetchDelay", "its source: " & Err.Source
Err.Clear
view.BorderStyle = 2
Host.Check Err.Number = 380, "a style that is none: " & Err.Number
Host.Check view.BorderStyle = 0 And view.PublicKey <> "", "what was there stays"
Err.Clear
view.PageCount = 3
Host.Check Err.Number = 438, "a property to be read only: " & Err.Number
Err.Clear
view.ImageDesc = "x"
Host.Check Err.Number = 438, "a key of the kept properties is no name: " & Err.Number
Err.Clear
view.NoSuchThing = 1
Host.Check Err.Number = 438, "an unknown name: " & Err.Number
Host.Check view.FetchDelay = 300, "a refused value changes nothing"
