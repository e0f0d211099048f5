
    N` G`   X `    Z `  F`  H 
    00 91
    01M30
   M
