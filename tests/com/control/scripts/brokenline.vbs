Dim view
Set view = CreateObject("VellaneInet2.ImageView")

view.PublicKey = ""
