%
    N` G`   X `    Z `  F`  H 
   123 00 -1234 -12345F678 910  remark
abc 00 91z    7z     8   9z 10zremark
   1   91  7     8     9   1  
    00 91  12.5   -2.5 .5     
    00 91 -  ab      -   x 1 2
   123cde ghijk pqrstuvwxy z12   a b 
   M
