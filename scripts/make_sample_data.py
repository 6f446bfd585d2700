#!/usr/bin/env python3
"""Writes examples/data/orders.csv: a deterministic, real-looking order book for the example host."""
import csv
import datetime
import random

CUSTOMERS = [
    ("Alfreds Futterkiste", "Berlin", "Germany"), ("Ana Trujillo Emparedados", "México D.F.", "Mexico"),
    ("Around the Horn", "London", "UK"), ("Berglunds snabbköp", "Luleå", "Sweden"),
    ("Blondel père et fils", "Strasbourg", "France"), ("Bólido Comidas preparadas", "Madrid", "Spain"),
    ("Bon app'", "Marseille", "France"), ("Bottom-Dollar Markets", "Tsawassen", "Canada"),
    ("Cactus Comidas para llevar", "Buenos Aires", "Argentina"), ("Chop-suey Chinese", "Bern", "Switzerland"),
    ("Comércio Mineiro", "São Paulo", "Brazil"), ("Drachenblut Delikatessen", "Aachen", "Germany"),
    ("Du monde entier", "Nantes", "France"), ("Eastern Connection", "London", "UK"),
    ("Ernst Handel", "Graz", "Austria"), ("Folk och fä HB", "Bräcke", "Sweden"),
    ("Frankenversand", "München", "Germany"), ("Great Lakes Food Market", "Eugene", "USA"),
    ("Hungry Owl All-Night Grocers", "Cork", "Ireland"), ("Island Trading", "Cowes", "UK"),
    ("Königlich Essen", "Brandenburg", "Germany"), ("La maison d'Asie", "Toulouse", "France"),
    ("Lazy K Kountry Store", "Walla Walla", "USA"), ("Magazzini Alimentari Riuniti", "Bergamo", "Italy"),
    ("Old World Delicatessen", "Anchorage", "USA"), ("Ottilies Käseladen", "Köln", "Germany"),
    ("Princesa Isabel Vinhos", "Lisboa", "Portugal"), ("Queen Cozinha", "São Paulo", "Brazil"),
    ("Rattlesnake Canyon Grocery", "Albuquerque", "USA"), ("Santé Gourmet", "Stavern", "Norway"),
    ("Simons bistro", "København", "Denmark"), ("Tortuga Restaurante", "México D.F.", "Mexico"),
    ("Vaffeljernet", "Århus", "Denmark"), ("Wartian Herkku", "Oulu", "Finland"),
    ("Wolski Zajazd", "Warszawa", "Poland"),
]
PRODUCTS = [
    ("Chai", 18.00), ("Chang", 19.00), ("Aniseed Syrup", 10.00), ("Chef Anton's Cajun Seasoning", 22.00),
    ("Grandma's Boysenberry Spread", 25.00), ("Uncle Bob's Organic Dried Pears", 30.00),
    ("Northwoods Cranberry Sauce", 40.00), ("Mishi Kobe Niku", 97.00), ("Ikura", 31.00),
    ("Queso Cabrales", 21.00), ("Queso Manchego La Pastora", 38.00), ("Konbu", 6.00), ("Tofu", 23.25),
    ("Genen Shouyu", 15.50), ("Pavlova", 17.45), ("Alice Mutton", 39.00), ("Carnarvon Tigers", 62.50),
    ("Teatime Chocolate Biscuits", 9.20), ("Sir Rodney's Marmalade", 81.00), ("Gustaf's Knäckebröd", 21.00),
    ("Tunnbröd", 9.00), ("Guaraná Fantástica", 4.50), ("NuNuCa Nuß-Nougat-Creme", 14.00),
    ("Gumbär Gummibärchen", 31.23), ("Schoggi Schokolade", 43.90), ("Rössle Sauerkraut", 45.60),
    ("Thüringer Rostbratwurst", 123.79), ("Nord-Ost Matjeshering", 25.89), ("Gorgonzola Telino", 12.50),
    ("Mascarpone Fabioli", 32.00), ("Geitost", 2.50), ("Sasquatch Ale", 14.00), ("Steeleye Stout", 18.00),
    ("Côte de Blaye", 263.50), ("Chartreuse verte", 18.00), ("Boston Crab Meat", 18.40),
    ("Jack's New England Clam Chowder", 9.65), ("Singaporean Hokkien Fried Mee", 14.00),
    ("Ipoh Coffee", 46.00), ("Gula Malacca", 19.45), ("Røgede sild", 9.50), ("Spegesild", 12.00),
    ("Zaanse koeken", 9.50), ("Chocolade", 12.75), ("Maxilaku", 20.00), ("Valkoinen suklaa", 16.25),
    ("Manjimup Dried Apples", 53.00), ("Filo Mix", 7.00), ("Perth Pasties", 32.80),
    ("Tourtière", 7.45), ("Pâté chinois", 24.00), ("Gnocchi di nonna Alice", 38.00),
    ("Ravioli Angelo", 19.50), ("Escargots de Bourgogne", 13.25), ("Raclette Courdavault", 55.00),
    ("Camembert Pierrot", 34.00), ("Sirop d'érable", 28.50), ("Tarte au sucre", 49.30),
    ("Vegie-spread", 43.90), ("Wimmers gute Semmelknödel", 33.25), ("Louisiana Fiery Hot Pepper Sauce", 21.05),
    ("Laughing Lumberjack Lager", 14.00), ("Original Frankfurter grüne Soße", 13.00),
]
SHIPPERS = ["Speedy Express", "United Package", "Federal Shipping"]


def main():
    rng = random.Random(1996)
    start = datetime.date(2024, 7, 4)
    rows = []
    for n in range(3200):
        order_id = 10248 + n
        day = start + datetime.timedelta(days=n // 4 + rng.randint(0, 2))
        customer, city, country = rng.choice(CUSTOMERS)
        product, price = rng.choice(PRODUCTS)
        quantity = rng.choice([1, 2, 3, 5, 6, 10, 12, 15, 20, 24, 25, 30, 35, 40, 50, 60, 70, 80, 100, 120])
        discount = rng.choice([0, 0, 0, 0, 0.05, 0.1, 0.15, 0.2, 0.25])
        shipped = "" if rng.random() < 0.04 else str(day + datetime.timedelta(days=rng.randint(1, 30)))
        rows.append([order_id, day.isoformat(), customer, city, country, product, quantity,
                     f"{price:.2f}", discount, rng.choice(SHIPPERS), shipped])
    with open("examples/data/orders.csv", "w", newline="", encoding="utf-8") as f:
        writer = csv.writer(f)
        writer.writerow(["OrderID", "OrderDate", "Customer", "City", "Country", "Product",
                         "Quantity", "UnitPrice", "Discount", "ShipVia", "ShippedDate"])
        writer.writerows(rows)


if __name__ == "__main__":
    main()
